#pragma once

#include "host/QXFiles.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The files of a dry run: those on disk, changed by what its actions would have done so far. Whoever would write, copy
/// or delete one has that said in the running action's log.
class TPlannedFiles final : public IQXFiles
{
public:
    std::string Find(std::string_view Path) const override;
    std::string Spelling(std::string_view Path) const override;
    bool FileExists(std::string_view Path) const override;
    bool FolderExists(std::string_view Path) const override;
    std::vector<std::string> FileNames(std::string_view Folder, std::string_view Mask) const override;
    std::string Read(std::string_view Path) const override;
    bool Write(std::string_view Path, std::string_view Bytes) override;
    bool Copy(std::string_view From, std::string_view To) override;
    bool Delete(std::string_view Path) override;
    bool ForceFolders(std::string_view Path) override;
    void WillMake(std::string_view Path, std::optional<std::string> Bytes) override;
    bool IsComplete() const override { return FIsComplete; }
    /// A tool may have made files that nobody knows of.
    void NoteUnknownFiles() { FIsComplete = false; }
    TQXFileEntry Entry(std::string_view Path) const override;
    std::vector<TQXFileEntry> Entries(std::string_view Folder) const override;
    std::string Resolve(std::string_view Path) const override;
    void ReadPieces(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use) const override;
    void Duplicate(std::string_view From, std::string_view To) override;
    void Remove(std::string_view Path) override;
    std::unique_ptr<IQXNewFile> Replace(std::string_view Path) override;

private:
    enum class TState { File, Folder, Gone };
    struct TEntry
    {
        TState State = TState::File;
        std::string Folder; ///< the key of the folder in which it lies
        std::string Name;   ///< in its spelling
        std::optional<std::string> Bytes;
        std::string Source; ///< the file on disk that it is a copy of, or empty
    };

    /// By what a path is known: absolute, without links and in the form that ignores case.
    [[nodiscard]] static std::string Key(std::string_view Path);
    /// The same for a symbolic link itself, where the path is one.
    [[nodiscard]] static std::string LinkKey(std::string_view Path);
    [[nodiscard]] const TEntry* Lookup(std::string_view Path) const;
    [[nodiscard]] static TQXFileEntry PlannedEntry(const TEntry& Planned);
    TEntry& Plan(std::string_view Path, TState State);
    /// Plans a folder, named absolutely, and its parents; false where a file is in the way.
    [[nodiscard]] bool PlanFolders(const std::string& Path);
    /// Whether a file can be made there.
    [[nodiscard]] bool HasRoom(std::string_view Path) const;

    std::map<std::string, TEntry, std::less<>> FEntries;
    bool FIsComplete = true;
};
