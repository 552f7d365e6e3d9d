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

/// A new file beside another one, gone with the object unless it was renamed.
class TTemporaryFile
{
public:
    TTemporaryFile(const std::string& Beside, mode_t Mode) : FFile(Create(Beside, Mode)) {}
    ~TTemporaryFile();
    TTemporaryFile(const TTemporaryFile&) = delete;
    TTemporaryFile& operator=(const TTemporaryFile&) = delete;

    [[nodiscard]] const TDescriptor& File() const { return FFile; }
    void Rename(const std::string& Path);

private:
    int Create(const std::string& Beside, mode_t Mode);

    std::string FPath;
    TDescriptor FFile;
};

/// Puts a new file in the place of another when it is complete. Other hard links to the old file keep its content.
class TReplacement
{
public:
    /// With the mode that the process gives to new files.
    explicit TReplacement(std::string Path);
    TReplacement(std::string Path, mode_t Mode);
    TReplacement(std::string Path, const TModelFile& Model);

    void Write(std::string_view Bytes) { WriteAll(FNew.File(), FPath, Bytes); }
    /// Writes texts one behind the other, when there is room for all of them.
    void Write(std::span<const std::string_view> Pieces);
    void Finish() { FNew.Rename(FPath); }

private:
    void TakeOver(const TModelFile& Model);
    [[nodiscard]] bool TakeAccessList(const std::string& List);
    void Reserve(std::size_t Size);

    std::string FPath;
    TTemporaryFile FNew;
    bool FOnDisk = false;
};
