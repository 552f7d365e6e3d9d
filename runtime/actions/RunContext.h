#pragma once

#include "host/QXAction.h"
#include "runtime/RunEvents.h"
#include "runtime/Variables.h"
#include "runtime/log/SecretMask.h"

#include <chrono>

class IQXFiles;
class TPlannedFiles;
class TQXRuntime;

/// How an action is to run.
struct TActionRun
{
    int Index = 0;                        ///< position in the project file, from 1
    std::chrono::seconds TimeLimit{0};    ///< of each of its processes; 0: none
    TPlannedFiles* Plan = nullptr;        ///< what a dry run would have made so far; null: the run is no dry one
    const TSecretMask* Secrets = nullptr; ///< null: there are none
    std::string Arguments{};              ///< to be put behind those of its tool
    bool FollowsIDE = false;              ///< as the project has it
};

/// The host's side of one action while it runs: turns what the action does into events. It is the running action of
/// the installed runtime until it goes.
class TRunContext final : public IQXActionHost
{
public:
    TRunContext(TCustomQXAction& Action, TActionRun Run, const TVariables& Variables, IRunEvents& Events);
    ~TRunContext() override;
    TRunContext(const TRunContext&) = delete;
    TRunContext& operator=(const TRunContext&) = delete;

    /// Where a text of the running action may be cut so that no secret is cut in two: Length, or a place before it.
    [[nodiscard]] static std::size_t PlaceToCut(std::string_view Text, std::size_t Length);
    /// The beginning of a text, cut there if it is longer than Length; by default as much of a name as messages show.
    [[nodiscard]] static std::string_view Shorten(std::string_view Text, std::size_t Length = 100);

    void SendMessage(std::string_view Text) override;
    void SendOutput(TQXOutputStream Stream, std::string_view Line) override;
    [[nodiscard]] bool TryExpandExpression(std::string_view Label, std::string_view Expression, std::string& Value,
                                           bool Required) override;
    [[nodiscard]] std::string ExpandExpression(std::string_view Expression, bool Report) override;
    [[nodiscard]] bool ExecuteScript(TQXScript& Script) override;
    void Poll() override { PassTermination(); }
    [[nodiscard]] bool IsDryRun() const override { return FRun.Plan != nullptr; }
    [[nodiscard]] bool FollowsIDE() const override { return FRun.FollowsIDE; }
    /// Those on disk or, in a dry run, what is planned of them.
    [[nodiscard]] IQXFiles& Files() const;

    /// Replaces the host variables of Expression and reports nothing.
    [[nodiscard]] TExpansion Expand(std::string_view Expression) const { return FVariables.Expand(Expression); }

    [[nodiscard]] const TActionRun& Run() const { return FRun; }
    /// Index is filled in.
    void ProcessStarted(TProcessStartedEvent Start);
    void ProcessEnded(TProcessEndedEvent End);
    /// Called about once a second while a process runs.
    void Tick();

    /// Passes a request to end the run on to the action, once.
    void PassTermination();
    /// Whether the action, or a process of it, was told to end.
    [[nodiscard]] bool WasTerminated() const { return FTerminated; }

private:
    TCustomQXAction& FAction;
    TActionRun FRun;
    const TVariables& FVariables;
    IRunEvents& FEvents;
    TQXRuntime& FRuntime;
    TRunContext* FOuter;
    bool FTerminated = false;
};
