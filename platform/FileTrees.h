// What lies in folders, whatever it is, and files of any size.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What lies at a path, behind symbolic links. Other is a device, a pipe or a socket.
enum class TFileKind { None, File, Folder, Other };

/// A name in a folder and what lies there. All but the first four is that of what a symbolic link leads to.
struct TFileEntry
{
    std::string Name;
    bool IsLink = false;
    std::string LinkTarget;           ///< as the link has it
    TFileKind Kind = TFileKind::None; ///< None: nothing is there, or a link that leads to nothing
    bool IsExecutable = false;
    std::int64_t Changed = 0; ///< when its content changed, in nanoseconds since the beginning of 1970
    std::uint64_t Size = 0;
};

/// The bare names in a folder, in no order. Behind links counts what they lead to, but those to folders stand apart.
struct TFolderNames
{
    std::vector<std::string> Files; ///< ordinary ones
    std::vector<std::string> Folders;
    std::vector<std::string> LinkedFolders;
};

/// All of these throw EFileError.
namespace FileTrees
{
/// What lies at a path, found ignoring case; a symbolic link counts although it leads to nothing.
[[nodiscard]] TFileEntry Entry(std::string_view Path);
/// All that lies in a folder, sorted by name, but new files that are not yet in their place. A folder that is not there
/// has nothing.
[[nodiscard]] std::vector<TFileEntry> Entries(std::string_view Folder);
/// Its names alone, which costs but one reading of the folder. Without those that Entries leaves out.
[[nodiscard]] TFolderNames Names(std::string_view Folder);
/// The absolute path behind all symbolic links; what is not there ends it as it is given.
[[nodiscard]] std::string Resolve(std::string_view Path);
/// Gives an ordinary file piece by piece. An exception out of Use ends it.
void Read(std::string_view Path, const std::function<void(std::string_view Bytes)>& Use);
/// Copies an ordinary file with its mode and the time of its change, overwriting whole or not at all. Between is called
/// now and then: an exception out of it ends the copying.
void Copy(std::string_view From, std::string_view To, const std::function<void()>& Between);
/// Deletes a file, a symbolic link (not what it leads to) or an empty folder; what is not there is no error.
void Remove(std::string_view Path);
} // namespace FileTrees

/// A file that is written piece by piece and takes its place when it is complete. One that goes before leaves nothing.
class TNewFile
{
public:
    /// All of these throw EFileError, also for a place at which something else than an ordinary file lies.
    explicit TNewFile(std::string_view Path);
    ~TNewFile();
    TNewFile(const TNewFile&) = delete;
    TNewFile& operator=(const TNewFile&) = delete;
    void Write(std::string_view Bytes);
    void Finish();

private:
    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
