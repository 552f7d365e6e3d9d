#include "package/sourceupdate/QXAssemblyInfoUpdaterAction.h"

#include "host/QXFiles.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "package/plugin/QXActionHelpers.h"
#include "platform/FileRewrite.h"
#include "platform/Paths.h"
#include "platform/ReadAhead.h"

namespace
{
constexpr const char* FileScript = "OnProcessFile";
constexpr const char* EntryScript = "OnProcessEntry";

/// The run is ended in the middle of a file.
struct TEnded
{
};
} // namespace

/// A folder in which files are going to be replaced.
void TQXAssemblyInfoUpdaterAction::Visit(const std::string& Folder) const
{
    if (!IsDryRun())
        Files::RemoveLeftovers(Folder);
}

TQXAssemblyInfoUpdaterAction::TQXAssemblyInfoUpdaterAction()
{
    Publish("Selection", Selection, "Files to update, one file or mask a line").File().Required("src/AssemblyInfo.cs");
    Publish("BackupFiles", BackupFiles, "Write a .bak file beside each file that is processed");
    Publish("Recurse", Recurse, "Look for masks in the folders below as well");
    Publish("Attributes", Attributes, "Attributes to set, one Name=Value a line; a value in quotes is a string")
        .Expression();
    Publish("UpdateOnly", UpdateOnly, "Only update declarations that are there, add none");
    for (const char* Name : {FileScript, EntryScript})
        TQXAssemblyInfoUpdaterAction::InitialiseScriptParams(AddScript(Name));
}

void TQXAssemblyInfoUpdaterAction::InitialiseScriptParams(TQXScript& Script)
{
    TQXAction::InitialiseScriptParams(Script);
    if (Script.Name() != FileScript && Script.Name() != EntryScript)
        return;
    Script.AddParam("Action");
    Script.AddParam("FileName", TQXParamType::String);
    if (Script.Name() == FileScript)
    {
        Script.AddParam("AssemblyInfo").SetParamTypeName("IQXAssemblyInfoUpdater");
        return;
    }
    Script.AddParam("EntryName", TQXParamType::String);
    Script.AddParam("EntryValue", TQXParamType::String).SetIsOutput(true);
}

bool TQXAssemblyInfoUpdaterAction::Validate(IQXActionValidationError& Errors)
{
    return Require(Errors, {{!Selection.IsEmpty(), "Files", "No files have been added for updating"}});
}

bool TQXAssemblyInfoUpdaterAction::Execute()
{
    FFiles.clear();
    FTerminated = false;
    const bool Result = BuildFileList() && ProcessFiles();
    FFiles.clear();
    FTerminated = false;
    return Result;
}

bool TQXAssemblyInfoUpdaterAction::BuildFileList()
{
    for (const std::string& Line : Selection)
    {
        std::string Path;
        if (!TryExpandExpression("Selection", Line, Path, false))
            return false;
        if (Path.find_first_of("*?") == std::string::npos)
        {
            if (FFiles.empty() || Paths::Folder(FFiles.back()) != Paths::Folder(Path))
                Visit(Paths::Folder(Path));
            FFiles.push_back(std::move(Path));
        }
        else
            ProcessWildCard(QXFiles().Spelling(Paths::Folder(Path)), Paths::FileName(Path));
        if (FTerminated)
            break;
    }
    return true;
}

void TQXAssemblyInfoUpdaterAction::ProcessWildCard(const std::string& Folder, std::string_view Mask)
{
    if (Host() != nullptr)
        Host()->Poll();
    Visit(Folder);
    for (const std::string& Name : QXFiles().FileNames(Folder, Mask))
        FFiles.push_back(Folder + Name);
    if (!Recurse)
        return;
    // Not through symbolic links: they lead out of the tree, or round in a circle.
    for (const std::string& Name : Files::Enumerate(Folder, "*.*", Files::TEntryKind::OwnFolders))
        if (!FTerminated)
            ProcessWildCard(Paths::WithTrailing(Folder + Name), Mask);
}

bool TQXAssemblyInfoUpdaterAction::ProcessFiles()
{
    TRewriteBatch Batch;
    bool Result = false;
    try
    {
        Result = ProcessFiles(Batch);
    }
    catch (const EFileError&)
    {
        // The files before it are updated.
        Batch.Finish();
        throw;
    }
    Batch.Finish();
    return Result;
}

bool TQXAssemblyInfoUpdaterAction::ProcessFiles(TRewriteBatch& Batch)
{
    TReadAhead Ahead(FFiles);
    const auto Updater = NewAssemblyInfoUpdater({UpdateOnly, IsDryRun(), &Ahead, &Batch});
    Updater->SetCallBack(*this);
    bool Result = true;
    for (std::size_t Index = 0; Index < FFiles.size() && Result && !FTerminated; ++Index)
    {
        SendMessage("Processing File : " + FFiles[Index]);
        Result = AddEntriesToUpdater(*Updater) && ProcessFile(*Updater, FFiles[Index]);
    }
    return Result;
}

bool TQXAssemblyInfoUpdaterAction::ProcessFile(IQXAssemblyInfoUpdater& Updater, const std::string& FileName) const
try
{
    const bool Result = Updater.ProcessFile(FileName, BackupFiles);
    if (!Result && Recurse && !QXFiles().FileExists(FileName))
        SendMessage("Only masks search subfolders, as in " + Paths::Join(Paths::Folder(FileName), "*") +
                    Paths::FileName(FileName));
    return Result;
}
catch (const TEnded&)
{
    return false;
}

/// Runs a script of this action; false if it failed, which has been reported.
bool TQXAssemblyInfoUpdaterAction::RunScript(const char* Name)
{
    const bool Succeeded = ExecuteScript(Name);
    if (!Succeeded && Host() != nullptr)
        Host()->Poll();
    // A script that was cut off by the end of the run has done part of its work: the file stays as it was.
    if (!Succeeded && FTerminated)
        throw TEnded();
    return Succeeded;
}

bool TQXAssemblyInfoUpdaterAction::AddEntriesToUpdater(IQXAssemblyInfoUpdater& Updater) const
{
    std::string Name;
    std::string Value;
    for (std::size_t Index = 0; Index < Attributes.Count(); ++Index)
    {
        if (Attributes[Index].empty())
            continue;
        if (!TryExpandExpression("Attributes", Attributes.Name(Index), Name, true) ||
            !TryExpandExpression("AttributeValue", Attributes.ValueAt(Index), Value, false))
            return false;
        const bool IsQuoted = Value.starts_with('"') || Value.starts_with('\'');
        Updater.AddEntry(Name, StripQuotes(Value), IsQuoted);
    }
    return true;
}

void TQXAssemblyInfoUpdaterAction::OnProcessFile(const std::string& FileName, IQXAssemblyInfoUpdater& Updater)
{
    TQXScript* Script = FindScriptToRun(FileScript);
    if (!Script)
        return;
    IQXScriptingServices& Services = QXScriptingServices();
    Script->SetValue("Action", Services.ObjectToVariant(*this));
    Script->SetValue("AssemblyInfo", Services.ObjectToVariant(Updater.GetImplementation()));
    Script->SetValue("FileName", FileName);
    // A failure has been reported; the file is updated all the same.
    static_cast<void>(RunScript(FileScript));
}

void TQXAssemblyInfoUpdaterAction::AssemblyInfoProcessEntry(const std::string& FileName, const std::string& EntryName,
                                                            std::string& EntryValue)
{
    TQXScript* Script = FindScriptToRun(EntryScript);
    if (!Script)
        return;
    Script->SetValue("Action", QXScriptingServices().ObjectToVariant(*this));
    Script->SetValue("FileName", FileName);
    Script->SetValue("EntryName", EntryName);
    Script->SetValue("EntryValue", EntryValue);
    if (!RunScript(EntryScript))
        return;
    if (const auto* Value = std::get_if<std::string>(&Script->FindParam("EntryValue")->Value()))
        EntryValue = *Value;
}
