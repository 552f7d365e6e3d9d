#pragma once

#include "runtime/Variables.h"

#include <string>

/// What became of an action's `when`.
struct TActionTest
{
    bool Holds = true;
    std::string Text;   ///< one that could not be expanded
    std::string Reason; ///< why; empty if all could
};

/// Tests whether an action is to run. An unknown variable is empty; no test holds.
[[nodiscard]] TActionTest TestAction(const std::string& When, const TVariables& Variables);
