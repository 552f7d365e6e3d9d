#include "runtime/clrhost/MonoDetection.h"

#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"
#include "runtime/clrhost/MonoToolFolder.h"

namespace
{
/// A profile of Mono: framework and SDK lie in one folder.
class TMonoVersion final : public IQXDotNetVersionInfo
{
public:
    explicit TMonoVersion(const std::string& ProfileFolder) : FFolder(ProfileFolder) {}
    [[nodiscard]] std::string GetVersionName() const override { return FFolder.VersionName(); }
    [[nodiscard]] std::string GetFrameworkPath() const override { return FFolder.Path(); }
    [[nodiscard]] std::string GetSDKPath() const override { return FFolder.Path(); }

private:
    TMonoToolFolder FFolder;
};

/// The prefixes of a `mono` in a folder of PATH: that by which it was found, and that of the file behind its links.
void AddPrefixesOf(const std::string& Folder, std::vector<std::string>& Prefixes)
{
    const std::string Program = Paths::Join(Folder, "mono");
    if (!Paths::IsAbsolute(Folder) || !Files::FileExists(Program))
        return;
    const std::string Real = Links::Resolve(Program);
    Prefixes.push_back(Paths::WithoutTrailing(Paths::Normalise(Paths::Join(Folder, ".."))));
    if (!Real.empty())
        Prefixes.push_back(Paths::WithoutTrailing(Paths::Normalise(Paths::Join(Paths::Folder(Real), ".."))));
}

/// "4.5" is a profile with tools, "4.5-api" holds reference assemblies, "gac" something else.
bool IsProfile(const std::string& Folder, const std::string& Name)
{
    const bool IsNumber = !Name.empty() && Name.find_first_not_of("0123456789.") == std::string::npos;
    return IsNumber && Files::FileExists(Paths::Join(Paths::Join(Folder, Name), "mcs.exe"));
}

/// The folders in a folder of Mono's. One that others keep to themselves holds nothing for us.
std::vector<std::string> FoldersIn(const std::string& Folder)
{
    try
    {
        return Files::Enumerate(Folder, "*", Files::TEntryKind::Folders);
    }
    catch (const EFileError&)
    {
        return {};
    }
}
} // namespace

std::vector<std::string> MonoPrefixes()
{
    std::vector<std::string> Result;
    for (const std::string& Folder : Environment::SearchFolders())
        AddPrefixesOf(Folder, Result);
    Result.insert(Result.end(), {"/usr", "/usr/local"});
    return Result;
}

TDotNetVersionList DetectMono(const std::vector<std::string>& Prefixes)
{
    TDotNetVersionList Result;
    for (const std::string& Prefix : Prefixes)
    {
        const std::string Folder = Paths::Join(Prefix, Paths::Normalise("lib/mono"));
        for (const std::string& Name : FoldersIn(Folder))
            if (IsProfile(Folder, Name))
                Result.push_back(std::make_unique<TMonoVersion>(Paths::Join(Folder, Name)));
        if (!Result.empty())
            break;
    }
    return Result;
}
