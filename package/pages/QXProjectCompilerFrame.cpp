#include "package/pages/QXProjectCompilerFrame.h"

#include "host/QXForms.h"
#include "package/compiler/QXProjectMapping.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Text.h"

#include <algorithm>
#include <exception>

namespace
{
TQXProjectMapping& MappingOf(TQXManagedCompilerAction& Action)
{
    return dynamic_cast<TQXProjectMapping&>(Action);
}

/// The names that can be picked: each once, none empty.
std::vector<std::string> Entries(const TStringList& Names)
{
    std::vector<std::string> Result;
    for (const std::string& Name : Names)
        if (!Name.empty() && std::find(Result.begin(), Result.end(), Name) == Result.end())
            Result.push_back(Name);
    return Result;
}
} // namespace

TProjectCompilerFrame::TProjectCompilerFrame()
{
    // The name of a configuration may hold variables, which no list has.
    cbConfigs.IsEditable = true;
    cbConfigs.OnChange = [this] { FConfigName = cbConfigs.Text; };
    Button1.OnClick = [this] { ReloadConfigs(); };
    txtProjectFile.OnBrowse = [this] {
        if (GetFile(txtProjectFile, MappingOf(*FAction).GetProjectFilter()))
            ReloadConfigs();
    };
    Bind(txtProjectFile, &TQXManagedCompilerAction::ProjectFile);
    BindMember(
        cbConfigs, &TQXManagedCompilerAction::ConfigName, [this](const std::string& Name) { FConfigName = Name; },
        [this](std::string& Name) { Name = FConfigName; });
    Bind(txtAssemblySearchPaths, &TQXManagedCompilerAction::LibLocations);
    Bind(txtCFResCompiler, &TQXManagedCompilerAction::CFResGen);
    Bind(txtCFPath, &TQXManagedCompilerAction::SDKPath);
    BrowseList(txtAssemblySearchPaths,
               {.Title = "Assembly Search Paths", .Caption = "Add Search Path", .Mask = "*.*", .Option = 1});
    Browse(txtCFResCompiler, FileFilters::CompactResourceCompiler);
    BrowseFolder(txtCFPath, "Select Compact Framework SDK Path");
}

void TProjectCompilerFrame::InitPage(TCustomQXAction& Action)
{
    TDotNetToolBaseFrame::InitPage(Action);
    FAction = &static_cast<TQXManagedCompilerAction&>(Action);
    // Not every language stores all of these: what is typed there would be lost.
    for (const TQXBinding& Binding : Bindings())
        if (!Action.FindMember(Binding.Member(Action)))
        {
            Binding.Control->Enabled = false;
            Binding.Control->Hint = "This action does not store it";
        }
}

void TProjectCompilerFrame::ReadActionData(TCustomQXAction& Action)
{
    TDotNetToolBaseFrame::ReadActionData(Action);
    LoadConfigs();
}

std::string TProjectCompilerFrame::LoadConfigs()
{
    TStringList Names;
    std::string Problem;
    try
    {
        // A file that is not there has no configurations.
        static_cast<void>(MappingOf(*FAction).LoadConfigListFromProject(FileAtDesignTime(txtProjectFile.Text), Names));
    }
    catch (const std::exception& Error)
    {
        Problem = Error.what();
    }
    cbConfigs.Items = Entries(Names);
    ShowConfig();
    return Problem;
}

void TProjectCompilerFrame::ReloadConfigs()
{
    if (const std::string Problem = LoadConfigs(); !Problem.empty())
        QXShowError(Problem);
}

void TProjectCompilerFrame::ShowConfig()
{
    const auto Found = std::find_if(cbConfigs.Items.begin(), cbConfigs.Items.end(), [this](const std::string& Item) {
        return Texts::FoldCase(Item) == Texts::FoldCase(FConfigName);
    });
    const bool CannotTell = cbConfigs.Items.empty() || FConfigName.find('%') != std::string::npos;
    if (Found != cbConfigs.Items.end())
        cbConfigs.Text = *Found;
    else
        cbConfigs.Text = CannotTell ? FConfigName : std::string();
}
