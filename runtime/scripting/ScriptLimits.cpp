#include "runtime/scripting/ScriptLimits.h"

#include "platform/Processes.h"

#include <fmt/format.h>

namespace
{
// A step can take as long as one pass over all of the script's memory, a look at the clock less than ten steps.
constexpr unsigned StepsBetweenChecks = 64;
// Half of what the smallest main thread of our systems has.
constexpr std::ptrdiff_t StackForEngine = 512 * 1024;

thread_local TScriptLimits* Current = nullptr;

std::string InSeconds(std::chrono::milliseconds Time)
{
    const double Seconds = std::chrono::duration<double>(Time).count();
    return fmt::format("{} second{}", Seconds, Seconds == 1 ? "" : "s");
}
} // namespace

constinit thread_local unsigned TScriptLimits::StepsToCheck = StepsBetweenChecks;

TScriptLimits::TScriptLimits(std::chrono::milliseconds Time, std::function<TScriptPlace()> FindPlace)
    : FTime(Time), FDeadline(std::chrono::steady_clock::now() + Time), FFindPlace(std::move(FindPlace)),
      FStackTop(static_cast<const char*>(__builtin_frame_address(0))), FOuter(Current)
{
    Current = this;
}

TScriptLimits::~TScriptLimits()
{
    Current = FOuter;
}

bool TScriptLimits::CheckCurrent()
{
    StepsToCheck = StepsBetweenChecks;
    return Current && Current->Check();
}

bool TScriptLimits::Check()
{
    if (!FReason.empty())
        return false; // finding the place takes steps too
    if (Termination::Requested() != 0)
        FReason = "the run was ended";
    else if (std::chrono::steady_clock::now() >= FDeadline)
        FReason = fmt::format("the script ran longer than {}", InSeconds(FTime));
    else
        return false;
    FPlace = FFindPlace();
    return true;
}

bool TScriptLimits::IsStackLow()
{
    const auto* Here = static_cast<const char*>(__builtin_frame_address(0));
    if (!Current || Current->FStackTop - Here <= StackForEngine)
        return false;
    Current->FPlace = Current->FFindPlace();
    return true;
}
