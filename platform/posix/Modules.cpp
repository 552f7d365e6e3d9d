#include "platform/Modules.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <dlfcn.h>

#include <string_view>

namespace
{
/// The loader's reason, which mostly begins with the file's name.
std::string LastReason(const std::string& FileName)
{
    const char* Text = ::dlerror();
    std::string Reason = Text == nullptr ? "unknown reason" : Text;
    const std::string Prefix = FileName + ": ";
    if (Reason.starts_with(Prefix))
        Reason.erase(0, Prefix.size());
    return Reason;
}
} // namespace

std::string TModule::FileBesideProgram(const std::string& Name)
{
    return Paths::Expand("../lib/" + Name + ".so", Paths::Folder(Files::ProgramFile()));
}

std::vector<std::string> TModule::FilesBesideProgram(const std::string& Folder)
{
    const std::string Path = Paths::Expand("../lib/" + Folder, Paths::Folder(Files::ProgramFile()));
    std::vector<std::string> Result = Files::Enumerate(Path, "*.so", Files::TEntryKind::Files);
    for (std::string& File : Result)
        File = Paths::Join(Path, File);
    return Result;
}

TModule::TModule(const std::string& FileName)
    : FFileName(FileName), FHandle(::dlopen(FileName.c_str(), RTLD_NOW | RTLD_LOCAL))
{
    if (FHandle == nullptr)
        throw EModuleError(FFileName + ": cannot be loaded: " + LastReason(FFileName));
}

void* TModule::Symbol(const char* Name) const
{
    void* Address = ::dlsym(FHandle, Name);
    if (Address == nullptr)
        throw EModuleError(FFileName + ": exports no " + Name);
    return Address;
}
