// What the parts of Files share on POSIX systems.
#pragma once

#include "platform/Files.h"

#include <cerrno>
#include <dirent.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

/// An open file, closed with the object.
class TDescriptor
{
public:
    explicit TDescriptor(int Value) : FValue(Value) {}
    ~TDescriptor()
    {
        if (FValue >= 0)
            ::close(FValue);
    }
    TDescriptor(TDescriptor&& Other) noexcept : FValue(std::exchange(Other.FValue, -1)) {}
    TDescriptor& operator=(TDescriptor&& Other) noexcept
    {
        std::swap(FValue, Other.FValue);
        return *this;
    }

    [[nodiscard]] int Value() const { return FValue; }
    [[nodiscard]] bool IsOpen() const { return FValue >= 0; }
    /// Gives the file to who closes it from now on.
    [[nodiscard]] int Release() { return std::exchange(FValue, -1); }
    /// Closes the file now; false, with errno set, if what was written did not reach it.
    [[nodiscard]] bool Close() { return ::close(std::exchange(FValue, -1)) == 0; }

private:
    int FValue;
};

/// The error for a file whose reason is that of errno or another number.
[[nodiscard]] EFileError SystemError(const std::string& Path, int Number = errno);

/// Files::Spelling for the system's calls: empty, which names no file, when the path holds a NUL, for they would
/// take it as the end.
[[nodiscard]] std::string SystemPath(std::string_view Path);

/// What lies at a path in just this spelling, behind symbolic links; false if nothing does.
[[nodiscard]] bool GetStatus(const std::string& Path, struct stat& Status);

/// Reads an open file, whose status is given, to its end; Path is for the error.
[[nodiscard]] std::string ReadAll(const TDescriptor& File, const std::string& Path, const struct stat& Status);

/// Whether a file has no write permission at all.
[[nodiscard]] inline bool HasNoWriteBit(const struct stat& Status)
{
    return (Status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

using TFolderHandle = std::unique_ptr<DIR, int (*)(DIR*)>;
/// A folder for reading its entries; null if it cannot be read.
[[nodiscard]] TFolderHandle OpenFolder(const std::string& Path);
