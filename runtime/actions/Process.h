#pragma once

#include "host/QXProcess.h"
#include "platform/Processes.h"

/// A process that runs on behalf of the running action: its start and end are events of that action, its time
/// limit is the action's. When no action runs it works the same without events. Packages make one without naming the
/// action, so it asks the runtime for it, as the action itself does.
class TQXProcess final : public IQXProcess
{
public:
    void SetExecutable(std::string Executable) override { FExecutable = std::move(Executable); }
    [[nodiscard]] std::string GetExecutable() const override { return FExecutable; }
    void SetStartDirectory(std::string Folder) override { FFolder = std::move(Folder); }
    [[nodiscard]] std::string GetStartDirectory() const override { return FFolder; }
    void SetArguments(std::string Arguments) override { FArguments = std::move(Arguments); }
    [[nodiscard]] std::string GetArguments() const override { return FArguments; }
    void SetEvents(IQXProcessEvents* Events) override { FEvents = Events; }

    // Every process has no console of its own, is waited for and ends with its children: only C asks for more.
    void SetOptionA(bool) override {}
    void SetOptionB(bool) override {}
    void SetOptionC(bool Value) override { FHideWindow = Value; }
    void SetOptionD(bool) override {}
    void SetOptionE(bool) override {}

    [[nodiscard]] int Run() override;
    [[nodiscard]] int RunCaptured(TStringList& Lines) override;

    /// How the last run ended.
    [[nodiscard]] const TProcessEnd& End() const { return FEnd; }

private:
    [[nodiscard]] int Run(IProcessListener& Listener);
    [[nodiscard]] TProcessStart Prepare() const;
    [[nodiscard]] int Show(const TProcessStart& Start);
    void ReportEnd(const TProcessStart& Start);
    [[nodiscard]] int ExitCode() const;

    std::string FExecutable;
    std::string FFolder;
    std::string FArguments;
    IQXProcessEvents* FEvents = nullptr;
    bool FHideWindow = false;
    TProcessEnd FEnd;
};
