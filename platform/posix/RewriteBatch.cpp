#include "platform/posix/RewriteBatch.h"

#include "platform/Paths.h"
#include "platform/posix/FileImage.h"
#include "platform/posix/QuietThread.h"

#include <algorithm>
#include <fcntl.h>
#include <set>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

namespace
{
using TPendingFiles = std::vector<TPendingFile>;

/// Each file that waits is open, and the one that it replaces. Of those that a process may open most are left to
/// others.
std::size_t Capacity()
{
    constexpr rlim_t Most = 256;
    rlimit Limit = {};
    ::getrlimit(RLIMIT_NOFILE, &Limit);
    return std::clamp<rlim_t>(Limit.rlim_cur / 6, 1, Most);
}

/// Writes what was written to all of their file systems to disk, each with its journal once.
void FlushSystemsOf(const TPendingFiles& Files)
{
    std::set<dev_t> Flushed;
    for (const auto& Item : Files)
    {
        struct stat Status = {};
        const int File = Item.New->File().Value();
        // A new file lies where the one that it replaces does.
        if (Item.Old)
            Status = *Item.Old;
        else if (::fstat(File, &Status) != 0)
            throw SystemError(Item.New->Path());
        if (Flushed.insert(Status.st_dev).second && ::syncfs(File) != 0)
            throw SystemError(Item.New->Path());
    }
}

constexpr std::size_t Few = 8;

/// A file system may have much of others to write: for a few files only they are waited for.
void Flush(const TPendingFiles& Files)
{
    if (Files.size() > Few)
        return FlushSystemsOf(Files);
    for (const auto& Item : Files)
        Item.New->Flush();
}

/// Writes the names in the folders of files to disk.
void FlushFoldersOf(const TPendingFiles& Files)
{
    std::set<std::string> Folders;
    for (const auto& Item : Files)
        Folders.insert(Paths::Folder(Item.New->Path()));
    for (const std::string& Folder : Folders)
    {
        const TDescriptor Handle(::open(Folder.empty() ? "." : Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // A file system that knows no flush of folders keeps the order of renames by itself.
        if (!Handle.IsOpen() || (::fsync(Handle.Value()) != 0 && errno != EINVAL))
            throw SystemError(Folder);
    }
}

/// Renames files, and goes on when one cannot be.
class TPlacing
{
public:
    void Place(const TPendingFiles& Files, bool AreSources)
    {
        for (const auto& Item : Files)
            try
            {
                if (AreSources && FFailed.contains(Item.Source))
                    continue;
                if (AreSources && !IsUnchanged(Item.New->Path(), *Item.Old))
                    throw EFileError(Item.New->Path(), "Another program has changed the file meanwhile");
                Item.New->Finish();
            }
            catch (const EFileError& Error)
            {
                FFailed.insert(Item.Source);
                if (!FFirst)
                    FFirst = Error;
            }
    }

    void ThrowFailure() const
    {
        if (FFirst && FFailed.size() == 1)
            throw EFileError(*FFirst);
        if (FFirst)
            throw EFileError(FFirst->Path, FFirst->Reason + " (nor could " + std::to_string(FFailed.size() - 1) +
                                               " other files be replaced)");
    }

private:
    std::set<std::size_t> FFailed;
    std::optional<EFileError> FFirst;
};
} // namespace

TRewriteBatch::TRewriteBatch() : FImpl(std::make_unique<TImpl>()) {}
TRewriteBatch::~TRewriteBatch() = default;

void TRewriteBatch::Finish()
{
    FImpl->Finish();
}

bool TRewriteBatch::TImpl::Awaits(const struct stat& File) const
{
    const auto Replaces = [&File](const TPendingFile& Item) {
        return Item.Old && Item.Old->st_ino == File.st_ino && Item.Old->st_dev == File.st_dev;
    };
    return std::any_of(FSources.begin(), FSources.end(), Replaces) ||
           std::any_of(FBackups.begin(), FBackups.end(), Replaces) ||
           std::find(FLast.begin(), FLast.end(), TIdentity(File.st_dev, File.st_ino)) != FLast.end();
}

void TRewriteBatch::TImpl::Add(TPendingFiles& Target, TPendingFile Item)
{
    static const std::size_t Full = Capacity();
    Target.push_back(std::move(Item));
    if (FBackups.size() + FSources.size() < Full)
        return;
    Join();
    ThrowError();
    Begin();
    if (Full > Few)
        FPlacer = StartQuietly([this] { PlaceAll(); });
    if (!FPlacer.joinable())
        PlaceAll();
}

TRewriteBatch::TImpl::~TImpl()
{
    Join();
}

/// Takes up what waits.
void TRewriteBatch::TImpl::Begin()
{
    FBegunBackups = std::exchange(FBackups, {});
    FBegunSources = std::exchange(FSources, {});
    FPlaced = TClock::now();
    FLast.clear();
    for (const TPendingFiles* Files : {&FBegunBackups, &FBegunSources})
        for (const TPendingFile& Item : *Files)
            if (Item.Old)
                FLast.emplace_back(Item.Old->st_dev, Item.Old->st_ino);
}

/// Files that were begun are gone at the end, also without having taken their places.
void TRewriteBatch::TImpl::PlaceAll()
{
    const TPendingFiles Backups = std::exchange(FBegunBackups, {});
    const TPendingFiles Sources = std::exchange(FBegunSources, {});
    try
    {
        Flush(Backups);
        Flush(Sources);
        TPlacing Placing;
        Placing.Place(Backups, false);
        if (!Sources.empty())
            FlushFoldersOf(Backups);
        Placing.Place(Sources, true);
        Placing.ThrowFailure();
    }
    catch (...)
    {
        if (!FError)
            FError = std::current_exception();
    }
}

void TRewriteBatch::TImpl::Join()
{
    if (FPlacer.joinable())
        FPlacer.join();
}

void TRewriteBatch::TImpl::ThrowError()
{
    if (FError)
        std::rethrow_exception(std::exchange(FError, nullptr));
}

void TRewriteBatch::TImpl::Finish()
{
    Join();
    Begin();
    PlaceAll();
    ThrowError();
}
