#include "platform/FileRewrite.h"

#include "platform/Paths.h"
#include "platform/posix/FileImage.h"
#include "platform/posix/ReadAhead.h"
#include "platform/posix/RewriteBatch.h"

#include <atomic>
#include <fcntl.h>
#include <optional>

struct TFileRewrite::TImpl
{
    TImpl(const std::string& Path, TReadAhead::TImpl* AAhead, TRewriteBatch::TImpl* ABatch);
    ~TImpl()
    {
        if (Ahead)
            Ahead->Retire(std::move(Image.File));
    }
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    void CheckAccess() const;
    [[nodiscard]] TPendingFile NewFile(const std::string& Path, std::span<const std::string_view> Pieces) const;
    void Settle(const struct stat& Replaced);

    [[nodiscard]] TFileImage TakeImage(const std::string& Path) const;

    TReadAhead::TImpl* Ahead;
    TRewriteBatch::TImpl Own; ///< of a file that is rewritten alone
    TRewriteBatch::TImpl* Batch;
    TFileImage Image;
    std::size_t Number; ///< another one for each file
};

namespace
{
std::size_t NextNumber()
{
    static std::atomic<std::size_t> Last = 0;
    return ++Last;
}
} // namespace

TFileImage TFileRewrite::TImpl::TakeImage(const std::string& Path) const
{
    std::optional<TFileImage> Taken = Ahead ? Ahead->Take(Path) : std::nullopt;
    if (Taken && Batch->HasPlacedSince(Taken->ReadSince) && !IsAtItsPath(*Taken))
        Taken.reset();
    TFileImage Loaded = Taken ? *std::move(Taken) : LoadImage(Path);
    if (Batch->IsEmpty() || (Loaded.State != TState::Missing && !Batch->Awaits(Loaded.Status)))
        return Loaded;
    // It is about to be there, or to be another one.
    Batch->Finish();
    return LoadImage(Path);
}

TFileRewrite::TImpl::TImpl(const std::string& Path, TReadAhead::TImpl* AAhead, TRewriteBatch::TImpl* ABatch)
    : Ahead(AAhead), Batch(ABatch ? ABatch : &Own), Image(TakeImage(Path)), Number(NextNumber())
{}

/// The folder's permissions alone decide about a rename, but a write-protected file is not to change.
void TFileRewrite::TImpl::CheckAccess() const
{
    const bool OwnerMay = Image.Status.st_uid == ::geteuid() && (Image.Status.st_mode & S_IWUSR) != 0;
    if (!OwnerMay && ::faccessat(AT_FDCWD, Image.Path.c_str(), W_OK, AT_EACCESS) != 0)
        throw SystemError(Image.Path);
}

/// A file like this one, written.
TPendingFile TFileRewrite::TImpl::NewFile(const std::string& Path, std::span<const std::string_view> Pieces) const
{
    auto New = std::make_unique<TReplacement>(Path, TModelFile{Image.Status, Image.AccessList});
    New->Write(Pieces);
    return {std::move(New), std::nullopt, Number, TDescriptor(-1)};
}

/// What follows when a file is about to be replaced.
void TFileRewrite::TImpl::Settle(const struct stat& Replaced)
{
    if (Ahead)
        Ahead->Forget(Replaced);
    Own.Finish();
}

TFileRewrite::TFileRewrite(const std::string& Path, TReadAhead* Ahead, TRewriteBatch* Batch)
    : FImpl(std::make_unique<TImpl>(Path, Ahead ? Ahead->FImpl.get() : nullptr, Batch ? Batch->FImpl.get() : nullptr))
{}

TFileRewrite::~TFileRewrite() = default;

TFileRewrite::TState TFileRewrite::State() const
{
    return FImpl->Image.State;
}

std::string_view TFileRewrite::Bytes() const
{
    return FImpl->Image.Bytes;
}

void TFileRewrite::Backup(const std::string& Path) const
{
    const std::string Target = Paths::Normalise(Path);
    struct stat Old = {};
    const bool Exists = ::lstat(Target.c_str(), &Old) == 0;
    if (Exists && (S_ISDIR(Old.st_mode) || (!S_ISLNK(Old.st_mode) && HasNoWriteBit(Old))))
        return;
    const std::string_view Bytes = FImpl->Image.Bytes;
    TPendingFile New = FImpl->NewFile(Target, {&Bytes, 1});
    if (Exists)
        New.Old = Old;
    FImpl->Batch->AddBackup(std::move(New));
    FImpl->Settle(Old);
}

void TFileRewrite::Replace(std::span<const std::string_view> Pieces)
{
    TFileImage& Image = FImpl->Image;
    FImpl->CheckAccess();
    TPendingFile New = FImpl->NewFile(Image.Path, Pieces);
    New.Old = Image.Status;
    New.OldFile = std::move(Image.File);
    FImpl->Batch->AddSource(std::move(New));
    FImpl->Settle(Image.Status);
}
