#pragma once

#include <string>

/// A folder in which every file of a Mono profile stands under its own name, and tools that Mono calls otherwise
/// also under the name that actions use (csc.exe for mcs.exe). It consists of links, which Mono follows: a tool
/// started through one finds its assemblies, its configuration and its response file there. It lies in the user's
/// cache folder and is made when it is first asked for; runs may do so side by side.
class TMonoToolFolder
{
public:
    /// ProfileFolder: "/usr/lib/mono/4.5", without trailing delimiter.
    explicit TMonoToolFolder(std::string ProfileFolder) : FProfile(std::move(ProfileFolder)) {}
    /// Removes the folder if it had to be a temporary one.
    ~TMonoToolFolder();
    TMonoToolFolder(const TMonoToolFolder&) = delete;
    TMonoToolFolder& operator=(const TMonoToolFolder&) = delete;

    /// The name of the profile's version: "v4.5".
    [[nodiscard]] std::string VersionName() const;
    /// The folder, complete and up to date. Where the cache folder cannot be written, or others can change what lies in
    /// it, it is a temporary one, and where that fails too the profile's own, which lacks the other names.
    [[nodiscard]] const std::string& Path() const;

private:
    [[nodiscard]] std::string MakeTemporary() const;

    std::string FProfile;
    mutable std::string FPath;
    mutable std::string FTemporary;
};
