#include "platform/FolderLock.h"

#include "platform/Paths.h"
#include "platform/posix/FilesReplacement.h"

#include <fcntl.h>
#include <sys/file.h>

struct TFolderLock::TImpl
{
    TDescriptor Folder{-1};
};

TFolderLock::TFolderLock(const std::string& File) : FImpl(std::make_unique<TImpl>())
{
    std::string Folder = Paths::Folder(FollowLinks(SystemPath(File)));
    if (Folder.empty())
        Folder = ".";
    if (!Files::ForcePrivateFolders(Folder))
        throw EFileError(Folder, "the folder cannot be made");
    FImpl->Folder = TDescriptor(::open(Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!FImpl->Folder.IsOpen())
        throw SystemError(Folder);
    while (::flock(FImpl->Folder.Value(), LOCK_EX) != 0 && errno == EINTR)
        continue;
}

TFolderLock::~TFolderLock() = default;
