#include "runtime/Project.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/projects/ProjectLoader.h"
#include "runtime/projects/ProjectWriter.h"
#include "runtime/projects/StringPlaces.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace
{
constexpr std::string_view ProjectFileName = "quexley.toml";

/// The nearest project file upwards, named as short as can be.
std::string NearestFile()
{
    const std::string Here = Files::CurrentFolder();
    std::string Below;
    for (std::string Folder = Here; Folder != Below; Folder = Paths::WithoutTrailing(Paths::Folder(Folder)))
    {
        const std::string File = Paths::Join(Folder, ProjectFileName);
        if (Files::FileExists(File))
            return Folder == Here ? std::string(ProjectFileName) : File;
        Below = Folder;
    }
    throw EHostFileError({.Message = "neither this folder nor one above it holds a quexley.toml; "
                                     "\"quexley init\" makes one"});
}

/// The project file that a path of the user's means, named as the user would.
std::string FileOf(const std::string& Path)
{
    if (Path.empty())
        return NearestFile();
    if (Path == ".")
        return std::string(ProjectFileName);
    return Files::FolderExists(Path) ? Paths::Join(Path, ProjectFileName) : Path;
}

std::string ReadFile(const std::string& File, const std::string& Path)
{
    if (Files::Find(File).empty())
        throw EHostFileError({.File = File,
                              .Message = File == Path
                                             ? "there is no such project file or folder"
                                             : "the folder holds no project file; \"quexley init\" makes one"});
    try
    {
        return Files::Read(File);
    }
    catch (const EFileError& Error)
    {
        throw EHostFileError({.File = File, .Message = Error.Reason});
    }
}
template <typename T> std::vector<T> Joined(std::vector<T> First, const std::vector<T>& Second)
{
    First.insert(First.end(), Second.begin(), Second.end());
    return First;
}

const TTomlNode* ActionTable(const TTomlDocument& Document, const TProjectAction& Action, const TProjectFile& File)
{
    const TTomlEntry* Actions = Document.Root().Find("action");
    const std::size_t Place = static_cast<std::size_t>(Action.Index) - 1 - File.FirstAction;
    return Actions && Place < Actions->Value.Items.size() ? &Actions->Value.Items[Place] : nullptr;
}
} // namespace

TProject TProject::Load(const std::string& Path)
{
    const std::string File = FileOf(Path);
    TProject Project = Parse(File, ReadFile(File, Path));
    Project.File = Paths::Expand(Files::Find(File), Files::CurrentFolder());
    return Project;
}

TProject TProject::Parse(const std::string& File, std::string_view Text)
{
    return TProjectLoader::Load(File, std::string(Text));
}

std::string TProject::ToText() const
{
    return WriteProjectFile(*this, FFiles.empty() ? TProjectFile{File, File, {}} : FFiles.front(), false);
}

void TProject::Save()
{
    if (FFiles.empty())
        FFiles.push_back({File, File, {}});
    std::vector<std::string> Texts;
    for (const TProjectFile& Each : FFiles)
        Texts.push_back(WriteProjectFile(*this, Each, &Each != FFiles.data()));
    for (std::size_t Place = 0; Place < FFiles.size(); ++Place)
        if (Place == 0 || Texts[Place] != FFiles[Place].Text)
            Files::ReplaceContent(Place == 0 ? File : FFiles[Place].Path, Texts[Place]);
    for (std::size_t Place = 0; Place < FFiles.size(); ++Place)
        FFiles[Place].Text = std::move(Texts[Place]);
    CountActions();
}

/// As reading the files again would.
void TProject::CountActions()
{
    const auto FirstOf = [this](const TProjectAction& Action) { return OwnerOf(Action).FirstAction; };
    std::stable_sort(Actions.begin(), Actions.end(), [&](const TProjectAction& Left, const TProjectAction& Right) {
        return FirstOf(Left) < FirstOf(Right);
    });
    std::vector<std::size_t> Firsts(FFiles.size(), Actions.size());
    for (std::size_t Place = Actions.size(); Place-- > 0;)
    {
        Actions[Place].Index = static_cast<int>(Place) + 1;
        Firsts[static_cast<std::size_t>(&OwnerOf(Actions[Place]) - FFiles.data())] = Place;
    }
    for (std::size_t Place = 0; Place < FFiles.size(); ++Place)
        FFiles[Place].FirstAction = Firsts[Place];
}

/// Actions of which no file is known are the project file's.
const TProjectFile& TProject::OwnerOf(const TProjectAction& Action) const
{
    for (const TProjectFile& Each : FFiles)
        if (Each.Name == Action.File)
            return Each;
    return FFiles.front();
}

bool TProject::IsIncluded(const TProjectAction& Action) const
{
    return !FFiles.empty() && &OwnerOf(Action) != FFiles.data();
}

std::vector<std::string> TProject::FileNames() const
{
    std::vector<std::string> Names{File};
    for (const TProjectFile& Each : FFiles)
        Names.push_back(Each.Path);
    return Names;
}

TVariables TProject::ExpressionVariables() const
{
    TVariables Result;
    Result.SetProjectVariables(AllVariables());
    Result.SetHostVariables({{"ProjectDir", Folder}, {"ProjectFile", File}, {"ProjectName", Name}});
    return Result;
}

TVariables::TPairs TProject::AllVariables() const
{
    return Joined(Included.Variables, Variables);
}

std::vector<std::string> TProject::AllSecrets() const
{
    return Joined(Included.Secrets, Secrets);
}

void TProject::GiveScripts()
{
    std::map<std::string_view, std::string_view> Given;
    for (const TVariables::TPairs* Pairs : {&Included.Scripts, &Scripts})
        for (const auto& [Script, Text] : *Pairs)
            Given.insert_or_assign(Script, Text);
    for (const TProjectAction& Action : Actions)
        for (const auto& Script : Action.Object->Scripts())
            if (const auto Found = Given.find(Script->Name()); Found != Given.end() && Script->Text().empty())
                Script->SetText(std::string(Found->second));
}

std::optional<THostFinding> TProject::PlaceIn(const TProjectFile& In, const TProjectAction* Action,
                                              std::string_view Table, std::string_view Key, int Line) const
{
    const TTomlDocument Document(In.Name, In.Text);
    const TTomlNode* Within = Action ? ActionTable(Document, *Action, In) : &Document.Root();
    if (const TTomlEntry* Inner = Within && !Table.empty() ? Within->Find(Table) : nullptr; !Table.empty())
        Within = Inner ? &Inner->Value : nullptr;
    const TTomlEntry* Entry = Within ? Within->Find(Key) : nullptr;
    if (!Entry)
        return {};
    const bool IsInText = Line > 0 && Entry->Value.Kind == TTomlKind::String;
    return MakeFinding(
        In.Name, IsInText ? PlaceOfLine(Document, Entry->Value, static_cast<std::size_t>(Line)) : Entry->Value.Begin,
        {});
}

THostFinding TProject::PlaceOf(const TProjectAction* Action, std::string_view Table, std::string_view Key,
                               int Line) const
{
    if (FFiles.empty())
        return {};
    std::optional<THostFinding> Place;
    if (Action)
        Place = PlaceIn(OwnerOf(*Action), Action, Table, Key, Line);
    for (std::size_t Other = 0; !Place && !Table.empty() && Other < FFiles.size(); ++Other)
        Place = PlaceIn(FFiles[Other], nullptr, Table, Key, Line);
    if (Place)
        return *Place;
    return Action ? THostFinding{Action->File, Action->Line, Action->Column} : THostFinding{FFiles.front().Name};
}
