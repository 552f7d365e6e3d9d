#include "apps/designer/run/Validation.h"

#include "apps/designer/QtText.h"
#include "runtime/ProjectRunner.h"
#include "runtime/RunEvents.h"

namespace
{
/// Keeps the findings of a run's events.
class TFindingCollector final : public IRunEvents
{
public:
    void Handle(const TRunEvent& Event) override
    {
        std::visit([this](const auto& Known) { Take(Known); }, Event);
    }
    std::vector<TProblem> Problems;

private:
    void Take(const TValidationErrorEvent& Event)
    {
        Problems.push_back({true, Event.Index, ToQt(Event.Action), ToQt(Event.Label), ToQt(Event.Message)});
    }
    template <TSeverity Severity> void Take(const THostEvent<Severity>& Event)
    {
        Problems.push_back({Severity == TSeverity::Error, 0, {}, {}, ToQt(Event.Message)});
    }
    template <typename T> void Take(const T&) {}
};
} // namespace

std::vector<TProblem> FindProblems(const std::string& File, const std::string& Text)
try
{
    TProject Project = TProject::Parse(File, Text);
    TFindingCollector Collector;
    (void)TProjectRunner(Project, {}, Collector).Validate();
    return std::move(Collector.Problems);
}
catch (const std::exception& Error)
{
    return {{true, 0, {}, {}, ToQt(Error.what())}};
}
