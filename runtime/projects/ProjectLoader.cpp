#include "runtime/projects/ProjectLoader.h"

#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace
{
template <typename T> void MoveBehind(std::vector<T>& Items, std::vector<T>&& More)
{
    Items.insert(Items.end(), std::make_move_iterator(More.begin()), std::make_move_iterator(More.end()));
}
} // namespace

TProject TProjectLoader::Load(const std::string& FileName, std::string Text)
{
    TProjectLoader Loader;
    const std::string Found = Files::Find(FileName);
    Loader.Add(FileName, Paths::Expand(Found.empty() ? FileName : Found, Files::CurrentFolder()), std::move(Text));
    if (!Loader.FFindings.empty())
        throw EHostFileError(std::move(Loader.FFindings));
    return std::move(Loader.FProject);
}

/// What a file includes comes before its own.
void TProjectLoader::Add(const std::string& FileName, const std::string& Path, std::string Text)
try
{
    const TTomlDocument Document(FileName, Text);
    TFileFindings Findings(FileName);
    TProjectPart Part = ReadProjectPart(Document, FileName, Findings);
    const std::size_t Place = FProject.FFiles.size();
    FProject.FFiles.push_back({FileName, Path, std::move(Text)});
    FOpen.push_back(Path);
    for (const TProjectInclude& Include : Part.Includes)
        AddIncluded(Include, FileName, Findings);
    FOpen.pop_back();
    FProject.FFiles[Place].FirstAction = FProject.Actions.size();
    Merge(std::move(Part.Content), FOpen.empty());
    Collect(Findings.Sorted());
}
catch (const EHostFileError& Error)
{
    Collect(Error.Findings());
}

/// A file that two others include counts once, where it comes first.
void TProjectLoader::AddIncluded(const TProjectInclude& Include, const std::string& FileName, TFileFindings& Findings)
{
    const std::string Name = Paths::Join(Paths::Folder(FileName), Include.Name);
    const std::string Path = Files::Find(Paths::Expand(Include.Name, Paths::Folder(FOpen.back())));
    if (Path.empty())
        return Findings.Add(Include.Position, fmt::format("there is no file \"{}\" to include", Include.Name));
    const auto IsIt = [&](const std::string& Other) { return Links::AreSame(Other, Path); };
    if (std::any_of(FOpen.begin(), FOpen.end(), IsIt))
        return Findings.Add(Include.Position, fmt::format("\"{}\" includes itself", Include.Name));
    if (std::any_of(FProject.FFiles.begin(), FProject.FFiles.end(), [&](const auto& File) { return IsIt(File.Path); }))
        return;
    try
    {
        Add(Name, Path, Files::Read(Path));
    }
    catch (const EFileError& Error)
    {
        Findings.Add(Include.Position, fmt::format("\"{}\" cannot be included: {}", Include.Name, Error.Reason));
    }
}

void TProjectLoader::Merge(TProject Part, bool IsProjectFile)
{
    for (TProjectAction& Action : Part.Actions)
        Action.Index += static_cast<int>(FProject.Actions.size());
    MoveBehind(FProject.Actions, std::move(Part.Actions));
    MoveBehind(IsProjectFile ? FProject.Secrets : FProject.Included.Secrets, std::move(Part.Secrets));
    MoveBehind(IsProjectFile ? FProject.Variables : FProject.Included.Variables, std::move(Part.Variables));
    MoveBehind(IsProjectFile ? FProject.Scripts : FProject.Included.Scripts, std::move(Part.Scripts));
    if (!IsProjectFile)
        return;
    FProject.File = Part.File;
    FProject.Folder = Part.Folder;
    FProject.Name = Part.Name;
    FProject.Includes = std::move(Part.Includes);
    FProject.FollowsIDE = Part.FollowsIDE;
}

void TProjectLoader::Collect(const std::vector<THostFinding>& Findings)
{
    FFindings.insert(FFindings.end(), Findings.begin(), Findings.end());
}
