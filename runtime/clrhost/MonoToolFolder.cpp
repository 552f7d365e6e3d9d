#include "runtime/clrhost/MonoToolFolder.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <random>

namespace fs = std::filesystem;

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

std::uint64_t RandomNumber()
{
    std::random_device Device;
    return (std::uint64_t{Device()} << 32U) | Device();
}

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
    {
        std::error_code Error;
        const auto Time = fs::last_write_time(Folder, Error);
        Result += fmt::format("{}\n", Error ? 0 : Time.time_since_epoch().count());
    }
    return Result;
}

bool IsComplete(const std::string& Folder, const std::string& State)
{
    const std::string Marker = Paths::Join(Folder, MarkerName);
    return fs::exists(Paths::Join(Folder, "csc.exe")) && Files::FileExists(Marker) && Files::Read(Marker) == State;
}

/// Puts the link in place whatever stood there; another run that does the same does no harm.
void PlaceLink(const fs::path& Link, const fs::path& Target)
{
    std::error_code Error;
    if (fs::read_symlink(Link, Error) == Target)
        return;
    const fs::path Temporary = fmt::format("{}.{:016x}", Link.string(), RandomNumber());
    fs::create_symlink(Target, Temporary);
    fs::rename(Temporary, Link);
}

/// Completes a folder. Throws std::runtime_error.
void FillFolder(const std::string& Folder, const std::string& Profile)
{
    const std::string State = StateOf(Profile);
    if (IsComplete(Folder, State))
        return;
    const std::map<std::string, std::string> Wanted = WantedLinks(Profile);
    for (const auto& [Name, Target] : Wanted)
        PlaceLink(Paths::Join(Folder, Name), Target);
    for (const fs::directory_entry& Entry : fs::directory_iterator(Folder))
        if (std::error_code Error; fs::is_symlink(Entry.symlink_status(Error)) && !fs::exists(Entry.path(), Error))
            fs::remove(Entry.path(), Error); // a tool that Mono has no more
    Files::ReplaceContent(Paths::Join(Folder, MarkerName), State, Files::TFlush::No);
}
} // namespace

TMonoToolFolder::~TMonoToolFolder()
{
    std::error_code Error;
    if (!FTemporary.empty())
        fs::remove_all(FTemporary, Error);
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
        const fs::path Cache = Files::CacheFolder();
        if (!Cache.is_absolute())
            throw std::runtime_error("there is no cache folder");
        const std::string Installation = fmt::format("{:016x}", std::hash<std::string>()(Paths::Folder(FProfile)));
        const std::string Below = fmt::format("quexley/mono/{}/{}", Installation, VersionName());
        const fs::path Folder = Cache / Below;
        if (!Files::ForceTrustedFolders(Cache.string(), Below))
            throw std::runtime_error("others could put their own tools there");
        FillFolder(Folder.string(), FProfile);
        FPath = Folder.string();
    }
    catch (const std::runtime_error&)
    {
        FPath = MakeTemporary();
    }
    return FPath;
}

std::string TMonoToolFolder::MakeTemporary() const
{
    try
    {
        const fs::path Folder = fs::temp_directory_path() / fmt::format("quexley-mono-{:016x}", RandomNumber());
        if (!Files::MakePrivateFolder(Folder.string()))
            return FProfile;
        FTemporary = Folder.string();
        const fs::path Tools = Folder / VersionName();
        if (!Files::MakePrivateFolder(Tools.string()))
            return FProfile;
        FillFolder(Tools.string(), FProfile);
        return Tools.string();
    }
    catch (const std::runtime_error&)
    {
        return FProfile;
    }
}
