#include "runtime/Project.h"

#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/HostErrors.h"
#include "runtime/projects/ProjectReader.h"
#include "runtime/projects/ProjectWriter.h"

namespace
{
constexpr std::string_view ProjectFileName = "quexley.toml";

/// The project file that a path of the user's means, named as the user would.
std::string FileOf(const std::string& Path)
{
    if (Path.empty() || Path == ".")
        return std::string(ProjectFileName);
    return Files::FolderExists(Path) ? Paths::Join(Path, ProjectFileName) : Path;
}

std::string ReadFile(const std::string& File, const std::string& Path)
{
    if (Files::Find(File).empty())
        throw EHostFileError(
            {.File = File,
             .Message = File == Path ? "there is no such project file or folder" : "the folder holds no project file"});
    try
    {
        return Files::Read(File);
    }
    catch (const EFileError& Error)
    {
        throw EHostFileError({.File = File, .Message = Error.Reason});
    }
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
    const TTomlDocument Document(File, std::string(Text));
    TProject Project = ReadProject(Document, File);
    Project.FText = Document.Text();
    return Project;
}

std::string TProject::ToText() const
{
    return WriteProject(*this, FText);
}

void TProject::Save()
{
    std::string Text = ToText();
    Files::ReplaceContent(File, Text);
    FText = std::move(Text);
    int Index = 0;
    for (TProjectAction& Action : Actions)
        Action.Index = ++Index;
}
