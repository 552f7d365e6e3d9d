#include "apps/designer/run/Validation.h"

#include "apps/designer/QtText.h"
#include "runtime/ProjectRunner.h"
#include "runtime/RunEvents.h"
#include "runtime/Runtime.h"
#include "runtime/options/UnknownOptions.h"

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

void AddHostProblems(std::vector<TProblem>& Problems, const std::vector<THostFinding>& Findings, bool IsError)
{
    for (const THostFinding& Finding : Findings)
        Problems.push_back({IsError, 0, QStringLiteral("Quexley"), {}, ToQt(Finding.Text())});
}
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

std::vector<TProblem> FindHostProblems(TQXRuntime& Runtime)
{
    std::vector<TProblem> Problems;
    try
    {
        AddHostProblems(Problems, FindUnknownOptions(Runtime), false);
    }
    catch (const EHostFileError& Error)
    {
        AddHostProblems(Problems, Error.Findings(), true);
    }
    AddHostProblems(Problems, Runtime.TakeWarnings(), false);
    return Problems;
}
