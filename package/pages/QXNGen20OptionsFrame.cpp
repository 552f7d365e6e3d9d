#include "package/pages/QXNGen20OptionsFrame.h"

#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sdktools/QXNGen20InstallAction.h"

TNGen20OptionsFrame::TNGen20OptionsFrame()
{
    Bind(boxDebug, &TQXNGen20AssemblyAction::Debug);
    Bind(boxProfile, &TQXNGen20AssemblyAction::Profile);
    Bind(boxNoDep, &TQXNGen20AssemblyAction::NoDep);
    Bind(boxExeConfig, &TQXNGen20AssemblyAction::UseExecConfig);
    Bind(txtExeConfig, &TQXNGen20AssemblyAction::ExeConfigPath);
    Bind(boxAppBase, &TQXNGen20AssemblyAction::UseAppBase);
    Bind(txtAppBase, &TQXNGen20AssemblyAction::AppBasePath);
    Bind(boxQueue, &TQXNGen20AssemblyAction::Queued);
    Bind(cmbQueuePriority, &TQXNGen20InstallAction::QueuePriority, 1);
    Bind(boxVerbose, &TQXNGen20AssemblyAction::Verbose);
    ExcludeEachOther(boxExeConfig, boxAppBase);
    txtExeConfig.OnBrowse = [this] {
        if (GetFileAsIs(txtExeConfig, FileFilters::Executables, "Select Executable"))
            Tick(boxExeConfig);
    };
    txtAppBase.OnBrowse = [this] {
        if (GetFolder(txtAppBase, "Select App Base Directory"))
            Tick(boxAppBase);
    };
}

void TNGen20OptionsFrame::ReadActionData(TCustomQXAction& Action)
{
    cmbQueuePriority.Visible = static_cast<TQXNGen20BaseAction&>(Action).GetNGenCommand() == "install";
    TFrame::ReadActionData(Action);
}
