#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Files and folders as the run finds them. In a dry run nothing is written: what would be is said in the log and
/// counts as done from then on. So whoever asks whether a file is there, and whoever makes, copies or deletes one, does
/// it here. Paths are found ignoring case if need be.
class IQXFiles
{
public:
    virtual ~IQXFiles() = default;

    /// The file or folder in its spelling, normalised; empty when there is none.
    [[nodiscard]] virtual std::string Find(std::string_view Path) const = 0;
    /// Find, or, for a path that is not there, its normalised form with the folders that are there in their spelling.
    [[nodiscard]] virtual std::string Spelling(std::string_view Path) const = 0;
    /// Whether an ordinary file (not a folder) is there.
    [[nodiscard]] virtual bool FileExists(std::string_view Path) const = 0;
    [[nodiscard]] virtual bool FolderExists(std::string_view Path) const = 0;
    /// The bare names of the files in a folder that match a mask, sorted. Throws std::runtime_error for a folder that
    /// cannot be read.
    [[nodiscard]] virtual std::vector<std::string> FileNames(std::string_view Folder, std::string_view Mask) const = 0;
    /// The bytes of a file. Throws std::runtime_error, in a dry run also for one that only a tool would have made.
    [[nodiscard]] virtual std::string Read(std::string_view Path) const = 0;

    /// Makes a generated file anew, for this user alone: what it holds may be secret. False on any failure.
    [[nodiscard]] virtual bool Write(std::string_view Path, std::string_view Bytes) = 0;
    /// Copies a file, overwriting. False on any failure, which leaves no half-written target.
    [[nodiscard]] virtual bool Copy(std::string_view From, std::string_view To) = 0;
    /// Deletes a file; false if it is there and cannot be deleted.
    [[nodiscard]] virtual bool Delete(std::string_view Path) = 0;
    /// Makes a folder and its parents; false if it is not there afterwards.
    [[nodiscard]] virtual bool ForceFolders(std::string_view Path) = 0;
    /// Tells of a file that a tool makes, or that the caller replaces in its own way and says so: in a dry run it is
    /// there from now on, with these bytes if they are known.
    virtual void WillMake(std::string_view Path, std::optional<std::string> Bytes = std::nullopt) = 0;
};

/// Those of the running action; outside of a run, those on disk.
[[nodiscard]] IQXFiles& QXFiles();
