#include "QXArchiveWriter.h"

#include "QXPathTexts.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <locale.h>
#include <stdexcept>

namespace
{
struct TEnding
{
    std::string_view Text;
    TQXArchiveFormat Format;
};
constexpr TEnding Endings[] = {
    {".zip", TQXArchiveFormat::Zip}, {".tar.gz", TQXArchiveFormat::TarGz}, {".tgz", TQXArchiveFormat::TarGz}};

/// The library takes names for what the locale says, and the times in a .zip are those of the time zone. As long as
/// this lives names are UTF-8 and the zone is the universal one.
class TUniversalSettings
{
public:
    TUniversalSettings() : FLocale(::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr))
    {
        if (FLocale == nullptr)
            throw std::runtime_error("This system has no locale C.UTF-8");
        FBefore = ::uselocale(FLocale);
        const char* Zone = std::getenv("TZ");
        FHadZone = Zone != nullptr;
        FZone = FHadZone ? Zone : "";
        SetZone("UTC0");
    }
    ~TUniversalSettings()
    {
        SetZone(FHadZone ? FZone.c_str() : nullptr);
        ::uselocale(FBefore);
        ::freelocale(FLocale);
    }
    TUniversalSettings(const TUniversalSettings&) = delete;
    TUniversalSettings& operator=(const TUniversalSettings&) = delete;

private:
    static void SetZone(const char* Zone)
    {
        if (Zone != nullptr)
            ::setenv("TZ", Zone, 1);
        else
            ::unsetenv("TZ");
        ::tzset();
    }

    locale_t FLocale;
    locale_t FBefore = nullptr;
    bool FHadZone = false;
    std::string FZone;
};

using TEntry = std::unique_ptr<archive_entry, decltype(&archive_entry_free)>;

TEntry MakeEntry(const TQXArchiveEntry& Source)
{
    constexpr int ForAll = 0644;
    constexpr int ForAllToRun = 0755;
    constexpr int OfLinks = 0777;
    TEntry Entry(archive_entry_new(), &archive_entry_free);
    const bool IsLink = !Source.LinkTarget.empty();
    if (archive_entry_update_pathname_utf8(Entry.get(), Source.Name.c_str()) == 0 ||
        (IsLink && archive_entry_update_symlink_utf8(Entry.get(), Source.LinkTarget.c_str()) == 0))
        throw std::runtime_error(Source.Name + ": Its name is no text in UTF-8");
    archive_entry_set_mtime(Entry.get(), Source.Changed, 0);
    if (IsLink)
    {
        archive_entry_set_filetype(Entry.get(), AE_IFLNK);
        archive_entry_set_perm(Entry.get(), OfLinks);
        return Entry;
    }
    archive_entry_set_filetype(Entry.get(), AE_IFREG);
    archive_entry_set_perm(Entry.get(), Source.IsExecutable ? ForAllToRun : ForAll);
    archive_entry_set_size(Entry.get(), static_cast<la_int64_t>(Source.Size));
    return Entry;
}
} // namespace

std::optional<TQXArchiveFormat> ArchiveFormatOf(std::string_view FileName)
{
    for (const TEnding& Ending : Endings)
        if (LowerCase(FileName).ends_with(Ending.Text))
            return Ending.Format;
    return std::nullopt;
}

struct TQXArchiveWriter::TImpl
{
    explicit TImpl(IQXNewFile& ATarget) : Target(ATarget) {}
    ~TImpl()
    {
        // The library ends what was begun, which goes nowhere now. What would take long it is told to leave, though it
        // does not free its compressor then.
        constexpr std::uint64_t Much = 64U << 20U;
        IsAbandoned = true;
        if (Left > Much)
            archive_write_fail(Archive);
        archive_write_free(Archive);
    }
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    /// No exception passes through the library, which is written in C.
    static la_ssize_t WriteBlock(archive*, void* Self, const void* Bytes, std::size_t Size) noexcept
    {
        auto& Writer = *static_cast<TImpl*>(Self);
        try
        {
            if (!Writer.IsAbandoned)
                Writer.Target.Write({static_cast<const char*>(Bytes), Size});
        }
        catch (...)
        {
            Writer.Failure = std::current_exception();
            Writer.IsAbandoned = true;
        }
        return static_cast<la_ssize_t>(Size);
    }

    void Check(la_ssize_t Result) const
    {
        if (Failure)
            std::rethrow_exception(Failure);
        if (Result < ARCHIVE_WARN)
            throw std::runtime_error(std::string("The archive could not be written: ") + archive_error_string(Archive));
    }

    void Open(TQXArchiveFormat Format)
    {
        if (Format == TQXArchiveFormat::Zip)
            Check(archive_write_set_format_zip(Archive));
        else
        {
            Check(archive_write_set_format_pax_restricted(Archive));
            Check(archive_write_add_filter_gzip(Archive));
            Check(archive_write_set_filter_option(Archive, "gzip", "timestamp", nullptr));
        }
        Check(archive_write_set_bytes_in_last_block(Archive, 1));
        Check(archive_write_open(Archive, this, nullptr, &WriteBlock, nullptr));
    }

    TUniversalSettings Settings;
    IQXNewFile& Target;
    archive* Archive = archive_write_new();
    std::exception_ptr Failure; ///< what Check throws
    bool IsAbandoned = false;
    std::uint64_t Left = 0; ///< bytes of the present file
};

TQXArchiveWriter::TQXArchiveWriter(TQXArchiveFormat Format, IQXNewFile& Target) : FImpl(std::make_unique<TImpl>(Target))
{
    FImpl->Open(Format);
}

TQXArchiveWriter::~TQXArchiveWriter() = default;

void TQXArchiveWriter::Begin(const TQXArchiveEntry& Entry)
{
    FImpl->Check(archive_write_header(FImpl->Archive, MakeEntry(Entry).get()));
    FImpl->Left = Entry.Size;
}

void TQXArchiveWriter::Write(std::string_view Bytes)
{
    FImpl->Check(archive_write_data(FImpl->Archive, Bytes.data(), Bytes.size()));
    FImpl->Left -= std::min<std::uint64_t>(FImpl->Left, Bytes.size());
}

void TQXArchiveWriter::Finish()
{
    FImpl->Check(archive_write_close(FImpl->Archive));
}
