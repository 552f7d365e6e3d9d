#pragma once

#include "platform/Files.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

class TReadAhead;

/// Files that are rewritten one after the other and take their places many at a time: the disk is waited for once for
/// all of them. A power cut leaves each with its old or its new content.
class TRewriteBatch
{
public:
    TRewriteBatch();
    /// What has not taken its place by now never does.
    ~TRewriteBatch();
    TRewriteBatch(const TRewriteBatch&) = delete;
    TRewriteBatch& operator=(const TRewriteBatch&) = delete;

    /// Waits for the disk and puts everything in its place, backups before their sources. Throws EFileError for the
    /// first file that could not be replaced and is as it was; the others are done.
    void Finish();

private:
    friend class TFileRewrite;
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};

/// An ordinary file that is read and afterwards replaced by a changed text, whole or not at all.
class TFileRewrite
{
public:
    enum class TState { Missing, ReadOnly, Loaded };

    /// Reads the file, found ignoring case, if it is there and has any write permission, or takes over what was read
    /// ahead of it. With a Batch, which must outlive the object, what is written takes its place when that is full, is
    /// finished, or when one of its files is read again: errors then come from there. Throws EFileError, also for a
    /// pipe or a device.
    explicit TFileRewrite(const std::string& Path, TReadAhead* Ahead = nullptr, TRewriteBatch* Batch = nullptr);
    ~TFileRewrite();
    TFileRewrite(const TFileRewrite&) = delete;
    TFileRewrite& operator=(const TFileRewrite&) = delete;

    [[nodiscard]] TState State() const;
    /// What was read.
    [[nodiscard]] std::string_view Bytes() const;
    /// Writes what was read to another file, with the owner and the mode of this one. A file in the way is replaced;
    /// one that cannot be is left, and then nothing is written. It is on disk before this file is replaced. Throws
    /// EFileError.
    void Backup(const std::string& Path) const;
    /// Makes Pieces, one behind the other, the file's content: a new file beside it is renamed over the old one,
    /// keeping owner, mode and access list and, through a symbolic link, the link. Throws EFileError, also if another
    /// program has changed the file since it was read or owner or group cannot be kept; the old file then is as it was.
    void Replace(std::span<const std::string_view> Pieces);

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
