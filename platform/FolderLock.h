#pragma once

#include <memory>
#include <string>

/// Keeps other processes that lock the same folder waiting: for whoever reads a file in it, changes it and writes it
/// again. Nothing is left on disk, and a process that dies holds no lock.
class TFolderLock
{
public:
    /// Waits until nobody else holds the lock of the folder in which File lies, behind symbolic links. The folder is
    /// made if it is not there. A file system that knows no locks gives none. Throws EFileError.
    explicit TFolderLock(const std::string& File);
    ~TFolderLock();
    TFolderLock(const TFolderLock&) = delete;
    TFolderLock& operator=(const TFolderLock&) = delete;

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
