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
    /// success. Services knows the methods, globals and types that scripts may use. Of a script that fails nothing
    /// stays: no output, no changed property, nothing that its calls added or removed.
    [[nodiscard]] virtual std::optional<TScriptFailure> Run(TQXScript& Script, TScriptingServices& Services) = 0;
    /// Gives the place and reason if the script cannot be parsed. Nothing of it runs.
    [[nodiscard]] virtual std::optional<TScriptFailure> Parse(TQXScript& Script, TScriptingServices& Services) = 0;
};
