// Files that take the place of others when they are complete.
#pragma once

#include "platform/posix/FilesPosix.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// Writes all bytes; Path is for the error.
void WriteAll(const TDescriptor& File, const std::string& Path, std::string_view Bytes);

/// The file that a path stands for behind the symbolic links at its end, which need not be there.
[[nodiscard]] std::string FollowLinks(std::string Path);

/// The list of those who have rights to a file beside owner and group, as the system keeps it; mostly empty.
[[nodiscard]] std::string AccessListOf(const TDescriptor& File, const std::string& Path);

/// What a new file takes over from another one: owner, mode and access list.
struct TModelFile
{
    const struct stat& Status;
    const std::string& AccessList;
};

/// A new file beside another one, without a name until it takes its place, where the file system can do that. Its lock
/// tells other processes that its maker lives.
class TTemporaryFile
{
public:
    TTemporaryFile(const std::string& Beside, mode_t Mode);
    ~TTemporaryFile();
    TTemporaryFile(const TTemporaryFile&) = delete;
    TTemporaryFile& operator=(const TTemporaryFile&) = delete;

    [[nodiscard]] const TDescriptor& File() const { return FFile; }
    void Rename(const std::string& Path);

private:
    [[nodiscard]] bool CreateNamed(mode_t Mode);
    void GiveName();
    [[nodiscard]] std::string NewName() const;

    std::string FFolder;
    std::string FPath; ///< while it has a name of its own
    TDescriptor FFile{-1};
};

/// Whether a name is one that new files have until they are in their place.
[[nodiscard]] bool IsTemporaryName(std::string_view Name);

/// Puts a new file in the place of another when it is complete. Other hard links to the old file keep its content.
class TReplacement
{
public:
    /// With the mode that the process gives to new files.
    explicit TReplacement(std::string Path);
    TReplacement(std::string Path, mode_t Mode);
    TReplacement(std::string Path, const TModelFile& Model);

    [[nodiscard]] const std::string& Path() const { return FPath; }
    [[nodiscard]] const TDescriptor& File() const { return FNew.File(); }
    void Write(std::string_view Bytes) { WriteAll(FNew.File(), FPath, Bytes); }
    /// Writes texts one behind the other.
    void Write(std::span<const std::string_view> Pieces);
    /// Waits until what was written is on disk: a power cut after Finish could otherwise leave a file without content.
    void Flush() const;
    /// Gives it the time of change of another file.
    void SetChanged(const timespec& Time) const;
    void Finish() { FNew.Rename(FPath); }

private:
    void TakeOver(const TModelFile& Model);
    [[nodiscard]] bool TakeAccessList(const std::string& List);

    std::string FPath;
    TTemporaryFile FNew;
};
