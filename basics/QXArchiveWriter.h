#pragma once

#include "host/QXFiles.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

enum class TQXArchiveFormat { Zip, TarGz };

/// The format that a file's ending tells; none for another ending.
[[nodiscard]] std::optional<TQXArchiveFormat> ArchiveFormatOf(std::string_view FileName);

/// What an archive holds of a file beside its bytes.
struct TQXArchiveEntry
{
    std::string Name;       ///< with "/", in UTF-8
    std::string LinkTarget; ///< of a symbolic link, which has no bytes
    bool IsExecutable = false;
    std::uint64_t Size = 0;
    std::int64_t Changed = 0; ///< seconds since 1970
};

/// Writes an archive whose bytes depend on nothing but what it is given: not on the user, the time zone or the locale.
/// All of it throws std::runtime_error.
class TQXArchiveWriter
{
public:
    /// Target must outlive the object.
    TQXArchiveWriter(TQXArchiveFormat Format, IQXNewFile& Target);
    ~TQXArchiveWriter();
    TQXArchiveWriter(const TQXArchiveWriter&) = delete;
    TQXArchiveWriter& operator=(const TQXArchiveWriter&) = delete;

    /// Begins an entry, whose bytes follow.
    void Begin(const TQXArchiveEntry& Entry);
    void Write(std::string_view Bytes);
    void Finish();

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
