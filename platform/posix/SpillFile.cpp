#include "platform/SpillFile.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace
{
std::error_code LastError()
{
    return {errno, std::generic_category()};
}

/// Repeats a call that a signal interrupts.
template <typename TCall> ssize_t Complete(TCall Call)
{
    ssize_t Count = -1;
    do
        Count = Call();
    while (Count < 0 && errno == EINTR);
    return Count;
}

/// For file systems that cannot make a file without a name.
int OpenUnlinked(const std::string& Folder)
{
    std::string Name = Paths::Join(Folder, "quexley-XXXXXX");
    const int Descriptor = ::mkostemp(Name.data(), O_CLOEXEC);
    if (Descriptor >= 0)
        ::unlink(Name.c_str());
    return Descriptor;
}
} // namespace

std::error_code TSpillFile::Create()
{
    Close();
    const std::string Folder = Files::TemporaryFolder();
    FDescriptor = ::open(Folder.c_str(), O_TMPFILE | O_RDWR | O_EXCL | O_CLOEXEC, 0600);
    if (FDescriptor < 0)
        FDescriptor = OpenUnlinked(Folder);
    return IsOpen() ? std::error_code() : LastError();
}

void TSpillFile::Close()
{
    if (IsOpen())
        ::close(std::exchange(FDescriptor, None));
}

// NOLINTBEGIN(readability-make-member-function-const): the file behind the descriptor changes.
std::error_code TSpillFile::Write(std::string_view Bytes)
{
    while (!Bytes.empty())
    {
        const ssize_t Count = Complete([&] { return ::write(FDescriptor, Bytes.data(), Bytes.size()); });
        if (Count < 0)
            return LastError();
        Bytes.remove_prefix(static_cast<std::size_t>(Count));
    }
    return {};
}

std::size_t TSpillFile::Read(char* Buffer, std::size_t Size)
{
    const ssize_t Count = Complete([&] { return ::read(FDescriptor, Buffer, Size); });
    return Count < 0 ? 0 : static_cast<std::size_t>(Count);
}

void TSpillFile::Rewind()
{
    ::lseek(FDescriptor, 0, SEEK_SET);
}
// NOLINTEND(readability-make-member-function-const)
