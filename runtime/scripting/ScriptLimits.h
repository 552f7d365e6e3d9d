#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

/// How long a script may run and how deep the engine may nest, for the script that runs on this thread until the object
/// goes. A script that a script's call starts has limits of its own.
class TScriptLimits
{
public:
    /// FindLine gives the script's line at the moment; it is called when a limit is reached.
    TScriptLimits(std::chrono::milliseconds Time, std::function<int()> FindLine);
    ~TScriptLimits();
    TScriptLimits(const TScriptLimits&) = delete;
    TScriptLimits& operator=(const TScriptLimits&) = delete;

    /// Why the script was ended; empty while it was not.
    [[nodiscard]] const std::string& Reason() const { return FReason; }
    /// Where a limit was reached last; 0 if none was.
    [[nodiscard]] int Line() const { return FLine; }

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
    std::function<int()> FFindLine;
    const char* FStackTop;
    std::string FReason;
    int FLine = 0;
    TScriptLimits* FOuter;
};
