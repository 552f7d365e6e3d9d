// New files that wait to take their places together.
#pragma once

#include "platform/FileRewrite.h"
#include "platform/posix/FilesReplacement.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

/// A complete new file.
struct TPendingFile
{
    std::unique_ptr<TReplacement> New;
    std::optional<struct stat> Old; ///< what it replaces; for a backup there may be nothing
    std::size_t Source = 0;         ///< the same for a source and its backup
    TDescriptor OldFile{-1};        ///< of a source: while it is open, replacing it takes little time
};

struct TRewriteBatch::TImpl
{
    TImpl() = default;
    ~TImpl();
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    void AddBackup(TPendingFile Backup) { Add(FBackups, std::move(Backup)); }
    void AddSource(TPendingFile Source) { Add(FSources, std::move(Source)); }
    [[nodiscard]] bool IsEmpty() const { return FBackups.empty() && FSources.empty(); }
    /// Whether a file is to be replaced.
    [[nodiscard]] bool Awaits(const struct stat& File) const;
    void Finish();

private:
    void Add(std::vector<TPendingFile>& Target, TPendingFile Item);
    void Close(std::vector<TPendingFile> Files);
    void WaitForCloser();

    std::vector<TPendingFile> FBackups;
    std::vector<TPendingFile> FSources;
    std::thread FCloser;
};
