#include "runtime/clrhost/MonoToolFolder.h"

#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <array>
#include <functional>
#include <map>

namespace
{
/// A name that actions use and the files of Mono that do its work, relative to the profile, best first. The profile's
/// own file of that name goes before all.
struct TToolName
{
    std::string_view Name;
    std::array<std::string_view, 2> Candidates;
};
constexpr std::array ToolNames{
    TToolName{"csc.exe", {"mcs.exe", "gmcs.exe"}},
    TToolName{"vbc.exe", {"vbnc.exe", "vbnc2.exe"}},
    TToolName{"msbuild.exe", {"../xbuild/14.0/bin/xbuild.exe", "xbuild.exe"}},
    TToolName{"resgen.exe", {"resgen2.exe", "resgen1.exe"}},
    TToolName{"ildasm.exe", {"ikdasm.exe", "monodis.exe"}},
    TToolName{"signtool.exe", {"signcode.exe", "signcode2.exe"}},
};
/// Written last: with it, a folder is complete for the state of the installation that it names.
constexpr std::string_view MarkerName = ".complete";

/// Where each name of the tool folder leads.
std::map<std::string, std::string> WantedLinks(const std::string& Profile)
{
    std::map<std::string, std::string> Result;
    for (const std::string& Name : Files::Enumerate(Profile, "*", Files::TEntryKind::Files))
        Result[Name] = Paths::Join(Profile, Name);
    for (const TToolName& Tool : ToolNames)
        for (const std::string_view Candidate : Tool.Candidates)
        {
            const std::string Target = Paths::Expand(Candidate, Profile);
            if (Result.contains(std::string(Tool.Name)) || !Files::FileExists(Target))
                continue;
            Result[std::string(Tool.Name)] = Target;
            if (Files::FileExists(Target + ".config"))
                Result[std::string(Tool.Name) + ".config"] = Target + ".config";
        }
    return Result;
}

/// Changes whenever files of the profile come, go or are replaced.
std::string StateOf(const std::string& Profile)
{
    std::string Result = Profile + "\n";
    for (const std::string& Folder : {Profile, Paths::Expand("../xbuild/14.0/bin", Profile)})
        Result += fmt::format("{}\n", Files::FolderStamp(Folder));
    return Result;
}

bool IsComplete(const std::string& Folder, const std::string& State)
{
    const std::string Marker = Paths::Join(Folder, MarkerName);
    return Files::FileExists(Paths::Join(Folder, "csc.exe")) && Files::FileExists(Marker) &&
           Files::Read(Marker) == State;
}

/// Completes a folder. Throws EFileError.
void FillFolder(const std::string& Folder, const std::string& Profile)
{
    const std::string State = StateOf(Profile);
    if (IsComplete(Folder, State))
        return;
    const std::map<std::string, std::string> Wanted = WantedLinks(Profile);
    for (const auto& [Name, Target] : Wanted)
        Links::Place(Paths::Join(Folder, Name), Target);
    Links::RemoveDead(Folder); // tools that Mono has no more
    Files::ReplaceContent(Paths::Join(Folder, MarkerName), State, Files::TFlush::No);
}
} // namespace

TMonoToolFolder::~TMonoToolFolder()
{
    if (!FTemporary.empty())
        Files::DeleteTree(FTemporary);
}

std::string TMonoToolFolder::VersionName() const
{
    return "v" + Paths::FileName(FProfile);
}

const std::string& TMonoToolFolder::Path() const
{
    if (!FPath.empty())
        return FPath;
    try
    {
        const std::string Cache = Files::CacheFolder();
        if (!Paths::IsAbsolute(Cache))
            throw EFileError(Cache, "the cache folder is not an absolute path");
        const std::string Installation = fmt::format("{:016x}", std::hash<std::string>()(Paths::Folder(FProfile)));
        const std::string Below = fmt::format("quexley/mono/{}/{}", Installation, VersionName());
        const std::string Folder = Paths::Join(Cache, Below);
        if (!Files::ForceTrustedFolders(Cache, Below))
            throw EFileError(Folder, "others could put their own tools there");
        FillFolder(Folder, FProfile);
        FPath = Folder;
    }
    catch (const EFileError&)
    {
        FPath = MakeTemporary();
    }
    return FPath;
}

std::string TMonoToolFolder::MakeTemporary() const
{
    try
    {
        FTemporary = Files::MakeTemporaryFolder("quexley-mono");
        std::string Tools = Paths::Join(FTemporary, VersionName());
        if (!Files::MakePrivateFolder(Tools))
            return FProfile;
        FillFolder(Tools, FProfile);
        return Tools;
    }
    catch (const EFileError&)
    {
        return FProfile;
    }
}
