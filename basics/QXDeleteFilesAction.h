#pragma once

#include "QXFileAction.h"

#include <string>

/// Deletes files and folders, of symbolic links the link. What is not there is not missed.
class TQXDeleteFilesAction final : public TQXFileAction
{
public:
    TQXDeleteFilesAction();

    static std::string GetActionName() { return "Delete Files"; }
    static int GetHelpTopicID() { return 5170; }
    static std::string GetQuickHelpFilename() { return "Plugins\\DeleteFiles.html"; }

    [[nodiscard]] bool Execute() override;

    bool Recurse = false;
    bool RemoveFolders = false;
    bool AllowOutside = false;

private:
    [[nodiscard]] bool IsAllowed(const std::string& Named, const std::string& Place) const;
    [[nodiscard]] bool AreAllowed(const std::vector<TQXSelectedFile>& Selected) const;
    [[nodiscard]] bool DeleteAll(const std::vector<TQXSelectedFile>& Selected);
    void Delete(const TQXSelectedFile& File);

    std::string FProjectFolder; ///< without links
    std::size_t FDeleted = 0;
};
