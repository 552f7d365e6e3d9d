#pragma once

#include "host/QXFiles.h"

#include <functional>
#include <string>
#include <vector>

/// What becomes of symbolic links to folders.
enum class TQXFolderLinks {
    Follow,      ///< their folders are walked as others are
    FollowNamed, ///< that of one which the user names in full; others are links
    Keep         ///< all are links
};

/// How far names and masks reach.
struct TQXSelectionRules
{
    bool RecurseMasks = false;   ///< masks hold in all folders below, too
    bool RecurseFolders = false; ///< a folder stands for all that lies below it, else for its own files
    bool TakeFolders = false;    ///< masks match folders, and these are taken behind what lies in them
    TQXFolderLinks Links = TQXFolderLinks::Keep;
    std::string LeaveOut{}; ///< what is not met on the way: an absolute path without links
};

/// A file that was found, or a link or a folder if the rules say so.
struct TQXSelectedFile
{
    std::string Path;
    std::string Base; ///< the last folder that its user named in full, with a delimiter; empty: the current one
    TQXFileEntry Entry;

    [[nodiscard]] std::string BehindBase() const { return Path.substr(Base.size()); }
    [[nodiscard]] bool IsFolder() const { return Entry.Kind == TQXFileKind::Folder && !Entry.IsLink; }
};

/// Finds what a list of files, folders and masks names, in its order, what lies in a folder sorted by name. A folder
/// that is named in full stands for the files in it; "**" in a mask is any number of folders.
class TQXFileSelection
{
public:
    /// Tell is told of what cannot be followed.
    TQXFileSelection(TQXSelectionRules Rules, std::function<void(const std::string&)> Tell);

    /// Adds what a text names; false if that is nothing. Throws std::runtime_error for a folder that cannot be read.
    [[nodiscard]] bool Add(const std::string& Text);
    [[nodiscard]] const std::vector<TQXSelectedFile>& Files() const { return FFiles; }
    /// The last folder that the text added last names in full.
    [[nodiscard]] const std::string& Base() const { return FBase; }

private:
    void AddNamed(const std::string& Path, const TQXFileEntry& Entry);
    void Expand(const std::string& Folder, const std::vector<std::string>& Parts, std::size_t Index);
    void Match(const std::string& Folder, const std::string& Mask);
    void TakeFolder(const std::string& Path, const TQXFileEntry& Entry);
    void Take(const std::string& Path, const TQXFileEntry& Entry) { FFiles.push_back({Path, FBase, Entry}); }
    void ForEachEntry(const std::string& Folder,
                      const std::function<void(const std::string& Path, const TQXFileEntry& Entry)>& Use);
    [[nodiscard]] bool IsLeftOut(const std::string& Path, const std::string& Name) const;
    [[nodiscard]] bool IsWalked(const TQXFileEntry& Entry) const;
    [[nodiscard]] bool LeadsBack(const std::string& Path) const;

    TQXSelectionRules FRules;
    std::function<void(const std::string&)> FTell;
    std::vector<TQXSelectedFile> FFiles;
    std::string FBase;
    std::vector<std::string> FWalked; ///< the folders in which the walk stands, without links
};
