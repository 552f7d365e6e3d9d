#pragma once

#include "host/QXScript.h"

#include <optional>
#include <string>

class TScriptingServices;

/// Where and why a script failed.
struct TScriptFailure
{
    int Line = 0; ///< from 1; 0: not known
    std::string Reason;
};

/// Runs scripts.
class IScriptEngine
{
public:
    virtual ~IScriptEngine() = default;
    /// Runs the script with its parameters as global variables, reads the outputs back, and gives no failure on
    /// success. Services knows the methods, globals and types that scripts may use.
    [[nodiscard]] virtual std::optional<TScriptFailure> Run(TQXScript& Script, TScriptingServices& Services) = 0;
};
