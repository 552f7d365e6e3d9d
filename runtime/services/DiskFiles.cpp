#include "runtime/services/DiskFiles.h"

#include "platform/Files.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"

namespace
{
class TDiskFiles final : public IQXFiles
{
public:
    std::string Find(std::string_view Path) const override { return Files::Find(Path); }
    std::string Spelling(std::string_view Path) const override { return Files::Spelling(Path); }
    bool FileExists(std::string_view Path) const override { return Files::FileExists(Path); }
    bool FolderExists(std::string_view Path) const override { return Files::FolderExists(Path); }
    std::vector<std::string> FileNames(std::string_view Folder, std::string_view Mask) const override
    {
        return Files::Enumerate(Folder, Mask, Files::TEntryKind::Files);
    }
    std::string Read(std::string_view Path) const override { return Files::Read(Path); }

    bool Write(std::string_view Path, std::string_view Bytes) override
    try
    {
        // One that may not be written to is replaced.
        if (!Files::Delete(Path))
            return false;
        Files::WritePrivate(Path, Bytes);
        return true;
    }
    catch (const EFileError&)
    {
        return false;
    }

    bool Copy(std::string_view From, std::string_view To) override { return Files::Copy(From, To); }
    bool Delete(std::string_view Path) override { return Files::Delete(Path); }
    bool ForceFolders(std::string_view Path) override { return Files::ForceFolders(Path); }
    void WillMake(std::string_view, std::optional<std::string>) override {}
};
} // namespace

IQXFiles& DiskFiles()
{
    static TDiskFiles Disk;
    return Disk;
}

IQXFiles& QXFiles()
{
    TRunContext* Running = TQXRuntime::RunningAction();
    return Running ? Running->Files() : DiskFiles();
}
