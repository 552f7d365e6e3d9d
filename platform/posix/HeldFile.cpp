#include "platform/HeldFile.h"

#include "platform/posix/FilesPosix.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>

namespace
{
/// Whether the name still stands for the file: who held it before may have removed it meanwhile.
bool IsAtItsPath(const std::string& FileName, const TDescriptor& File, struct stat& Status)
{
    struct stat Found = {};
    return ::fstat(File.Value(), &Status) == 0 && ::lstat(FileName.c_str(), &Found) == 0 &&
           Found.st_ino == Status.st_ino && Found.st_dev == Status.st_dev;
}
} // namespace

std::unique_ptr<THeldFile> THeldFile::Hold(const std::string& FileName)
{
    for (;;)
    {
        TDescriptor File(::open(FileName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
        if (!File.IsOpen())
            throw SystemError(FileName);
        if (::flock(File.Value(), LOCK_EX | LOCK_NB) != 0)
        {
            if (errno == EWOULDBLOCK)
                return nullptr;
            throw SystemError(FileName);
        }
        struct stat Status = {};
        if (!IsAtItsPath(FileName, File, Status))
            continue;
        const auto Length = static_cast<std::size_t>(Status.st_size);
        return std::unique_ptr<THeldFile>(new THeldFile(FileName, File.Release(), Length));
    }
}

THeldFile::~THeldFile()
{
    ::close(FDescriptor);
}

void THeldFile::Write(std::string Text)
{
    FLength = std::max(FLength, Text.size());
    Text.resize(FLength, '\n');
    const ssize_t Written = ::pwrite(FDescriptor, Text.data(), Text.size(), 0);
    if (Written < 0 || static_cast<std::size_t>(Written) != Text.size())
        throw SystemError(FFileName, Written < 0 ? errno : ENOSPC);
}

void THeldFile::Remove()
{
    if (::unlink(FFileName.c_str()) != 0 && errno != ENOENT)
        throw SystemError(FFileName);
}
