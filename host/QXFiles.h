#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What lies at a path, behind symbolic links. Other is a device, a pipe or a socket.
enum class TQXFileKind { None, File, Folder, Other };

/// A name in a folder and what lies there. All but the first four is that of what a symbolic link leads to.
struct TQXFileEntry
{
    std::string Name;
    bool IsLink = false;
    std::string LinkTarget;               ///< as the link has it
    TQXFileKind Kind = TQXFileKind::None; ///< None: nothing is there, or a link that leads to nothing
    bool IsExecutable = false;
    std::int64_t Changed = 0; ///< when its content changed, in nanoseconds since the beginning of 1970
    std::uint64_t Size = 0;
};

/// A file that is written piece by piece and takes its place, with whatever stood there, when it is complete. One that
/// goes before leaves nothing.
class IQXNewFile
{
public:
    virtual ~IQXNewFile() = default;
    /// Both throw std::runtime_error with the file and the reason.
    virtual void Write(std::string_view Bytes) = 0;
    virtual void Finish() = 0;
};

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

    /// Whether what is not there will not be there. False in a dry run behind a tool of which is not known what it
    /// makes.
    [[nodiscard]] virtual bool IsComplete() const = 0;

    // Whole trees of files. These throw std::runtime_error with the file and the reason, also when the run is to end:
    // the action has been told so then.

    /// What lies at a path; a symbolic link counts although it leads to nothing.
    [[nodiscard]] virtual TQXFileEntry Entry(std::string_view Path) const = 0;
    /// All that lies in a folder, sorted by name. A folder that is not there has nothing.
    [[nodiscard]] virtual std::vector<TQXFileEntry> Entries(std::string_view Folder) const = 0;
    /// The absolute path behind all symbolic links; what is not there ends it as it is given.
    [[nodiscard]] virtual std::string Resolve(std::string_view Path) const = 0;
    /// Gives an ordinary file of any size piece by piece.
    virtual void ReadPieces(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use) const = 0;
    /// Copies an ordinary file of any size with its mode and the time of its change, overwriting whole or not at all.
    virtual void Duplicate(std::string_view From, std::string_view To) = 0;
    /// Deletes a file, a symbolic link (not what it leads to) or an empty folder; what is not there is no error.
    virtual void Remove(std::string_view Path) = 0;
    /// A new file for that place. Not in a dry run, which has WillMake.
    [[nodiscard]] virtual std::unique_ptr<IQXNewFile> Replace(std::string_view Path) = 0;
};

/// Those of the running action; outside of a run, those on disk.
[[nodiscard]] IQXFiles& QXFiles();
