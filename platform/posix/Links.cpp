#include "platform/Links.h"

#include "platform/posix/FilesPosix.h"

#include <filesystem>
#include <random>

namespace fs = std::filesystem;

namespace
{
/// A name beside Name that no other run takes.
std::string TemporaryName(const std::string& Name)
{
    return Name + "." + std::to_string(::getpid()) + "." + std::to_string(std::random_device()());
}
} // namespace

std::string Links::Resolve(const std::string& Path)
{
    std::error_code Error;
    return fs::canonical(Path, Error).string();
}

bool Links::AreSame(const std::string& Left, const std::string& Right)
{
    std::error_code Error;
    return fs::equivalent(Left, Right, Error) && !Error;
}

void Links::Place(const std::string& Name, const std::string& Target)
{
    std::error_code Error;
    if (fs::read_symlink(Name, Error) == Target)
        return;
    const std::string Temporary = TemporaryName(Name);
    if (::symlink(Target.c_str(), Temporary.c_str()) != 0)
        throw SystemError(Name);
    if (::rename(Temporary.c_str(), Name.c_str()) == 0)
        return;
    const int Number = errno;
    ::unlink(Temporary.c_str());
    throw SystemError(Name, Number);
}

void Links::RemoveDead(const std::string& Folder)
try
{
    for (const fs::directory_entry& Entry : fs::directory_iterator(Folder))
        if (std::error_code Error; fs::is_symlink(Entry.symlink_status(Error)) && !fs::exists(Entry.path(), Error))
            fs::remove(Entry.path(), Error);
}
catch (const fs::filesystem_error& Error)
{
    throw SystemError(Folder, Error.code().value());
}
