#include "platform/posix/ReadAhead.h"

#include "platform/posix/QuietThread.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

namespace
{
constexpr std::size_t MinimumFiles = 16;
/// A larger file would not be alone in memory while it is worked on.
constexpr std::size_t MaximumSize = 256U << 10U;
} // namespace

TReadAhead::TReadAhead(const std::vector<std::string>& Paths)
    : FImpl(Paths.size() < MinimumFiles ? nullptr : std::make_unique<TImpl>(Paths))
{}

TReadAhead::~TReadAhead() = default;

TReadAhead::TImpl::TImpl(const std::vector<std::string>& Paths)
    : FPaths(Paths), FReader(StartQuietly([this] { ReadFiles(); }))
{}

TReadAhead::TImpl::~TImpl()
{
    FClaimed = FPaths.size();
    FLimit = std::numeric_limits<std::size_t>::max();
    FLimit.notify_one();
    if (FReader.joinable())
        FReader.join();
}

void TReadAhead::TImpl::ReadFiles()
{
    while (FClaimed < FPaths.size())
        if (const std::size_t Limit = FLimit; !ReadNext())
            FLimit.wait(Limit);
}

/// Reads the next file that nobody has claimed; false if there is none to be read for now.
bool TReadAhead::TImpl::ReadNext()
{
    std::size_t Index = FClaimed;
    do
        if (Index >= std::min(FPaths.size(), FLimit.load()))
            return false;
    while (!FClaimed.compare_exchange_weak(Index, Index + 1));
    TSlot& Target = Slot(Index);
    Target.Retired.reset();
    try
    {
        Target.Image = LoadImage(FPaths[Index], MaximumSize);
    }
    catch (const std::exception&)
    {
        // Whoever takes the file reads it again and meets the error itself.
        Target.Image.reset();
    }
    Target.Filled = Index + 1;
    Target.Filled.notify_one();
    return true;
}

std::optional<TFileImage> TReadAhead::TImpl::Take(const std::string& Path)
{
    const std::size_t Index = FNext;
    if (Index >= FPaths.size() || FPaths[Index] != Path)
        return std::nullopt;
    ++FNext;
    if (Index % Step == 0)
    {
        FLimit = Index + Window;
        FLimit.notify_one();
    }
    std::atomic<std::size_t>& Filled = Slot(Index).Filled;
    for (std::size_t Number = Filled; Number != Index + 1; Number = Filled)
        if (!ReadNext())
            Filled.wait(Number);
    std::optional<TFileImage> Image = std::exchange(Slot(Index).Image, std::nullopt);
    if (Image && !IsUsable(*Image))
        Image.reset();
    return Image;
}

void TReadAhead::TImpl::Retire(TDescriptor File)
{
    if (FNext != 0)
        Slot(FNext - 1).Retired = std::move(File);
}

void TReadAhead::TImpl::Forget(const struct stat& Replaced)
{
    FReplaced[FReplacedCount++ % FReplaced.size()] = {Replaced.st_dev, Replaced.st_ino};
}

/// A missing file may be there by now, a link may lead elsewhere, and what was read a while ago may have changed: a
/// change after that shows when the file is replaced.
bool TReadAhead::TImpl::IsUsable(const TFileImage& Image) const
{
    const TIdentity Identity(Image.Status.st_dev, Image.Status.st_ino);
    return Image.State == TFileRewrite::TState::Loaded && !Image.IsBehindLink &&
           std::find(FReplaced.begin(), FReplaced.end(), Identity) == FReplaced.end() &&
           (!IsOld(Image) || IsCurrent(Image));
}
