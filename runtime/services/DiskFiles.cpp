#include "runtime/services/DiskFiles.h"

#include "platform/FileTrees.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"

#include <stdexcept>

namespace
{
/// Long work on files ends when the run is to end.
void PassTermination()
{
    TRunContext* Running = TQXRuntime::RunningAction();
    if (Running)
        Running->Poll();
    if (Running && Running->WasTerminated())
        throw std::runtime_error("The run was ended");
}

class TDiskNewFile final : public IQXNewFile
{
public:
    explicit TDiskNewFile(std::string_view Path) : FFile(Path) {}
    void Write(std::string_view Bytes) override
    {
        PassTermination();
        FFile.Write(Bytes);
    }
    void Finish() override { FFile.Finish(); }

private:
    TNewFile FFile;
};

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
    bool IsComplete() const override { return true; }

    TQXFileEntry Entry(std::string_view Path) const override { return HostEntry(FileTrees::Entry(Path)); }
    std::vector<TQXFileEntry> Entries(std::string_view Folder) const override
    {
        PassTermination();
        std::vector<TQXFileEntry> Result;
        for (TFileEntry& Entry : FileTrees::Entries(Folder))
            Result.push_back(HostEntry(std::move(Entry)));
        return Result;
    }
    std::string Resolve(std::string_view Path) const override { return FileTrees::Resolve(Path); }
    void ReadPieces(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use) const override
    {
        FileTrees::Read(Path, [&](std::string_view Bytes) {
            PassTermination();
            Use(Bytes);
        });
    }
    void Duplicate(std::string_view From, std::string_view To) override
    {
        PassTermination();
        CheckPlace(To);
        FileTrees::Copy(From, To, PassTermination);
    }
    void Remove(std::string_view Path) override
    {
        PassTermination();
        FileTrees::Remove(Path);
    }
    std::unique_ptr<IQXNewFile> Replace(std::string_view Path) override
    {
        CheckPlace(Path);
        return std::make_unique<TDiskNewFile>(Path);
    }
};
} // namespace

TQXFileEntry HostEntry(TFileEntry Entry)
{
    static constexpr TQXFileKind Kinds[] = {TQXFileKind::None, TQXFileKind::File, TQXFileKind::Folder,
                                            TQXFileKind::Other};
    return {std::move(Entry.Name),
            Entry.IsLink,
            std::move(Entry.LinkTarget),
            Kinds[static_cast<std::size_t>(Entry.Kind)],
            Entry.IsExecutable,
            Entry.Changed,
            Entry.Size};
}

void CheckPlace(std::string_view Path)
{
    if (Paths::IsForeign(Path))
        throw EFileError(std::string(Path), "It is on a drive, which there is only on Windows");
}

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
