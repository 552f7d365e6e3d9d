#pragma once

#include "runtime/Project.h"
#include "runtime/RunEvents.h"
#include "runtime/Variables.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// What the command line asks of a run. Actions are named by their number or their name.
struct TRunOptions
{
    TVariables::TPairs Overrides{};
    std::optional<std::string> From{};
    std::vector<std::string> Only{};
    std::vector<std::string> Groups{}; ///< if there are any, no other actions
    std::vector<std::string> SkipGroups{};
    bool Resume = false;
    bool KeepGoing = false;
    bool SkipValidation = false;
    bool DryRun = false;
};

/// Validates and runs the actions of a project in order. The project's folder is the current one meanwhile.
class TProjectRunner
{
public:
    /// Selects the actions; throws EUsageError for one that does not exist.
    TProjectRunner(TProject& Project, TRunOptions Options, IRunEvents& Events);
    ~TProjectRunner();

    /// Validates the enabled and selected actions and reports every finding: Success, Invalid or HostError.
    TRunResult Validate();
    /// Validates them, and if there is no finding, runs them.
    TRunResult Run();

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
