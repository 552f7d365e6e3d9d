#include "platform/FileRewrite.h"

#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"
#include "platform/posix/ReadAhead.h"

#include <fcntl.h>
#include <optional>

struct TFileRewrite::TImpl
{
    TImpl(TFileImage AImage, TReadAhead::TImpl* AAhead) : Image(std::move(AImage)), Ahead(AAhead) {}
    ~TImpl()
    {
        if (Ahead)
            Ahead->Retire(std::move(Image.File));
    }
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    void CheckAccess() const;

    TFileImage Image;
    TReadAhead::TImpl* Ahead;
};

/// The folder's permissions alone decide about a rename, but a write-protected file is not to change.
void TFileRewrite::TImpl::CheckAccess() const
{
    const bool OwnerMay = Image.Status.st_uid == ::geteuid() && (Image.Status.st_mode & S_IWUSR) != 0;
    if (!OwnerMay && ::faccessat(AT_FDCWD, Image.Path.c_str(), W_OK, AT_EACCESS) != 0)
        throw SystemError(Image.Path);
}

TFileRewrite::TFileRewrite(const std::string& Path, TReadAhead* Ahead)
{
    TReadAhead::TImpl* Reader = Ahead ? Ahead->FImpl.get() : nullptr;
    std::optional<TFileImage> Image = Reader ? Reader->Take(Path) : std::nullopt;
    FImpl = std::make_unique<TImpl>(Image ? *std::move(Image) : LoadImage(Path), Reader);
}

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
    TReplacement Replacement(Target, {FImpl->Image.Status, FImpl->Image.AccessList});
    Replacement.Write(FImpl->Image.Bytes);
    Replacement.Finish();
    if (FImpl->Ahead && Exists)
        FImpl->Ahead->Forget(Old);
}

void TFileRewrite::Replace(std::span<const std::string_view> Pieces)
{
    const TFileImage& Image = FImpl->Image;
    FImpl->CheckAccess();
    TReplacement Replacement(Image.Path, {Image.Status, Image.AccessList});
    Replacement.Write(Pieces);
    if (!IsCurrent(Image))
        throw EFileError(Image.Path, "Another program has changed the file meanwhile");
    Replacement.Finish();
    if (FImpl->Ahead)
        FImpl->Ahead->Forget(Image.Status);
}
