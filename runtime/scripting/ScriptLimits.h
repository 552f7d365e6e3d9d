#pragma once

#include "runtime/scripting/ScriptPlace.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

/// How long a script may run and how deep the engine may nest, for the script that runs on this thread until the object
/// goes. A script that a script's call starts has limits of its own.
class TScriptLimits
{
public:
    /// FindPlace tells where the script is; it is called when a limit is reached.
    TScriptLimits(std::chrono::milliseconds Time, std::function<TScriptPlace()> FindPlace);
    ~TScriptLimits();
    TScriptLimits(const TScriptLimits&) = delete;
    TScriptLimits& operator=(const TScriptLimits&) = delete;

    /// Why the script was ended; empty while it was not.
    [[nodiscard]] const std::string& Reason() const { return FReason; }
    /// Where a limit was reached last.
    [[nodiscard]] const TScriptPlace& Place() const { return FPlace; }

    /// Looks at the running script's limits; true if it has to end.
    [[nodiscard]] static bool CheckCurrent();
    /// Whether the engine's calls nest too deep to go on.
    [[nodiscard]] static bool IsStackLow();

    /// The engine's steps up to the next look.
    static constinit thread_local unsigned StepsToCheck;

private:
    [[nodiscard]] bool Check();

    std::chrono::milliseconds FTime;
    std::chrono::steady_clock::time_point FDeadline;
    std::function<TScriptPlace()> FFindPlace;
    const char* FStackTop;
    std::string FReason;
    TScriptPlace FPlace;
    TScriptLimits* FOuter;
};
