// New files that wait to take their places together.
#pragma once

#include "platform/FileRewrite.h"
#include "platform/posix/FilesReplacement.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

/// A complete new file.
struct TPendingFile
{
    std::unique_ptr<TReplacement> New;
    std::optional<struct stat> Old; ///< what it replaces; for a backup there may be nothing
    std::size_t Source = 0;         ///< the same for a source and its backup
};

struct TRewriteBatch::TImpl
{
    void AddBackup(TPendingFile Backup) { Add(FBackups, std::move(Backup)); }
    void AddSource(TPendingFile Source) { Add(FSources, std::move(Source)); }
    [[nodiscard]] bool IsEmpty() const { return FBackups.empty() && FSources.empty(); }
    /// Whether a file is to be replaced.
    [[nodiscard]] bool Awaits(const struct stat& File) const;
    void Finish();

private:
    void Add(std::vector<TPendingFile>& Target, TPendingFile Item);

    std::vector<TPendingFile> FBackups;
    std::vector<TPendingFile> FSources;
};
