#pragma once

#include "QXArchiveWriter.h"
#include "QXFileAction.h"

#include <map>
#include <string>

/// Packs files, and symbolic links as such, into an archive. The same files give the same bytes.
class TQXMakeArchiveAction final : public TQXFileAction
{
public:
    TQXMakeArchiveAction();

    static std::string GetActionName() { return "Make Archive"; }
    static int GetHelpTopicID() { return 5180; }
    static std::string GetQuickHelpFilename() { return "Plugins\\MakeArchive.html"; }

    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool Execute() override;

    std::string BaseDir;
    std::string ArchiveFile;

private:
    using TContent = std::map<std::string, const TQXSelectedFile*>; ///< by the names in the archive

    [[nodiscard]] bool ExpandPaths(std::string& Base, std::string& File) const;
    [[nodiscard]] bool NameAll(const TQXFileSelection& Selection, const std::string& Base, TContent& Content) const;
    void WriteArchive(const std::string& File, const TContent& Content) const;
    [[nodiscard]] std::int64_t LatestTime() const;
};
