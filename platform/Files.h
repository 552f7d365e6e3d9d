// Files and folders. Every path may hold both delimiters, and a path that is not found is looked for again
// ignoring case, as projects made on Windows need it.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// Something went wrong with a file; the message names the file and the reason.
class EFileError : public std::runtime_error
{
public:
    EFileError(const std::string& APath, const std::string& AReason)
        : std::runtime_error(APath + ": " + AReason), Path(APath), Reason(AReason)
    {}
    std::string Path;
    std::string Reason;
};

namespace Files
{
/// The file or folder as it is spelled on disk, normalised, found ignoring case if need be; empty when
/// there is none. The exact spelling wins; among several others the first in byte order.
[[nodiscard]] std::string Find(std::string_view Path);
/// Find, or, for a path that is not there, its normalised form with the folders that are there in their
/// spelling on disk.
[[nodiscard]] std::string Spelling(std::string_view Path);
/// Whether an ordinary file (not a folder) is there.
[[nodiscard]] bool FileExists(std::string_view Path);
[[nodiscard]] bool FolderExists(std::string_view Path);

/// The bytes of a file. Throws EFileError.
[[nodiscard]] std::string Read(std::string_view Path);
/// Writes a file in place, making or truncating it: for generated files. Throws EFileError.
void Write(std::string_view Path, std::string_view Bytes);
/// The same; one that it makes is for its owner alone.
void WritePrivate(std::string_view Path, std::string_view Bytes);
/// Whether a power cut, too, is to leave the old content or the new one whole: it takes as long as the disk does.
enum class TFlush { Yes, No };
/// Replaces a file's content whole or not at all: a new file beside it is renamed over the old one,
/// keeping owner, mode and access list and, through a symbolic link, the link. Makes the file if there is none. Throws
/// EFileError, also where owner or group cannot be kept.
void ReplaceContent(std::string_view Path, std::string_view Bytes, TFlush Flush = TFlush::Yes);
/// Removes the new files that processes which died before they were complete have left in a folder. Those of living
/// ones stay.
void RemoveLeftovers(std::string_view Folder);
/// Deletes a file; false if it is there and cannot be deleted.
[[nodiscard]] bool Delete(std::string_view Path);
/// Copies a file, overwriting. False on any failure, which leaves no half-written target.
[[nodiscard]] bool Copy(std::string_view From, std::string_view To);
/// Makes a folder and its parents; false if it is not there afterwards.
[[nodiscard]] bool ForceFolders(std::string_view Path);
/// ForceFolders, with folders that only this user may use, whatever the umask.
[[nodiscard]] bool ForcePrivateFolders(std::string_view Path);
/// Makes the folders Below, one in the other, in Base for programs that are started from there: false unless nobody but
/// this user can change what is in them. One of this user's that others could write to is made anew, empty.
[[nodiscard]] bool ForceTrustedFolders(std::string_view Base, std::string_view Below);
/// Makes a folder for this user alone in one that is there; false also if something is there already.
[[nodiscard]] bool MakePrivateFolder(std::string_view Path);
/// Deletes a folder with everything in it; what cannot be deleted stays.
void DeleteTree(const std::string& Folder);
/// When the content of a file changed, in nanoseconds since the beginning of 1970; 0 if it is not there.
[[nodiscard]] std::int64_t ChangeTime(std::string_view Path);
/// A number that changes when names in a folder come, go or are replaced; 0 if it is not there.
[[nodiscard]] std::int64_t FolderStamp(std::string_view Folder);
/// Whether a file has no write permission at all, whoever asks.
[[nodiscard]] bool IsReadOnly(std::string_view Path);

/// What Enumerate looks for: files are ordinary ones; own folders are those that are no symbolic links.
enum class TEntryKind { Files, Folders, OwnFolders };
/// The bare names of the entries of Folder that match Mask, sorted; never ".", ".." and new files that are not yet in
/// their place.
/// A folder that is not there has none. Throws EFileError for one that cannot be read.
[[nodiscard]] std::vector<std::string> Enumerate(std::string_view Folder, std::string_view Mask, TEntryKind Kind);
/// Matches a name against a mask with `*`, `?` and character sets `[a-z]`, `[!a-z]`, ignoring case.
/// "*.*" matches every name.
[[nodiscard]] bool MatchesMask(std::string_view Name, std::string_view Mask);

[[nodiscard]] std::string CurrentFolder();
/// Throws EFileError.
void SetCurrentFolder(std::string_view Folder);
/// The full path of the running program's file.
[[nodiscard]] std::string ProgramFile();
/// The folders in which the user's programs have theirs, without a trailing delimiter and with no name of ours: the
/// XDG base folders on POSIX systems, AppData on Windows.
[[nodiscard]] std::string ConfigurationFolder();
[[nodiscard]] std::string StateFolder();
[[nodiscard]] std::string CacheFolder();
/// The folder for files that nobody misses later.
[[nodiscard]] std::string TemporaryFolder();
/// Makes a new folder in it for this user alone, its name beginning with Prefix. Throws EFileError.
[[nodiscard]] std::string MakeTemporaryFolder(std::string_view Prefix);
} // namespace Files

namespace Environment
{
/// Whether the environment has the variable; Value then holds it. Names ignore case on Windows only.
[[nodiscard]] bool Get(const std::string& Name, std::string& Value);
/// The same with the name compared ignoring case everywhere; the exact spelling wins.
[[nodiscard]] bool GetSame(std::string_view Name, std::string& Value);
/// The folders in which programs are looked for by their bare name, in that order.
[[nodiscard]] std::vector<std::string> SearchFolders();
} // namespace Environment
