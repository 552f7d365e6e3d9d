#pragma once

#include "runtime/scripting/ScriptEngine.h"

#include <chrono>

/// Runs scripts in JavaScript. Each call has an engine of its own, with a limit to its time and memory and no way to
/// files, processes or the network.
class TDuktapeEngine final : public IScriptEngine
{
public:
    TDuktapeEngine() = default;
    /// With a limit to a script's time in place of that of the host's options.
    explicit TDuktapeEngine(std::chrono::milliseconds TimeLimit) : FTimeLimit(TimeLimit) {}

    [[nodiscard]] std::optional<TScriptFailure> Run(TQXScript& Script, TScriptingServices& Services) override;
    [[nodiscard]] std::optional<TScriptFailure> Parse(TQXScript& Script, TScriptingServices& Services) override;

private:
    std::optional<std::chrono::milliseconds> FTimeLimit;
};
