#pragma once

#include "runtime/RunEvents.h"

#include <string>
#include <string_view>
#include <vector>

/// Passes events on, and finds out which failures follow from others: an action fails for the want of another's output
/// if its log names a file that an earlier one, which failed, would have made, and that is not there. The end of such
/// an action says so.
class TMissingOutputs final : public IRunEvents
{
public:
    explicit TMissingOutputs(IRunEvents& Target) : FTarget(Target) {}

    void Handle(const TRunEvent& Event) override;
    /// The action that ended last has failed, and would have made these files.
    void Add(const std::vector<std::string>& Files);

private:
    struct TOutput
    {
        std::string Action;
        std::string File;
        std::string Name; ///< in lower case
    };

    void Look(const TRunEvent& Event);
    void Look(std::string_view Line);
    void HandleEnd(TActionEndedEvent Event);

    IRunEvents& FTarget;
    std::vector<TOutput> FOutputs;
    std::string FEnded; ///< the action that ended last, as events name it
    std::string FMaker; ///< of the output that the running action lacks
};
