#pragma once

#include "QXFileAction.h"

#include <map>
#include <string>

/// Copies files, and what lies behind symbolic links, into a folder. Copies keep the mode and the time of change.
class TQXCopyFilesAction final : public TQXFileAction
{
public:
    TQXCopyFilesAction();

    static std::string GetActionName() { return "Copy Files"; }
    static int GetHelpTopicID() { return 5160; }
    static std::string GetQuickHelpFilename() { return "Plugins\\CopyFiles.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool Execute() override;

    std::string TargetDir;
    bool Recurse = false;
    bool KeepFolders = false;
    bool OnlyNewer = false;

private:
    using TSources = std::map<std::string, std::string>; ///< of the targets, in small letters

    [[nodiscard]] bool CopyFile(const TQXSelectedFile& File, const std::string& Target, TSources& Sources);
    [[nodiscard]] bool IsWanted(const TQXSelectedFile& File, const std::string& Target) const;
    [[nodiscard]] bool NoteSource(const TQXSelectedFile& File, const std::string& Target, TSources& Sources) const;

    std::size_t FCopied = 0;
};
