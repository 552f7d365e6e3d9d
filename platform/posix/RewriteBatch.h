// New files that wait to take their places together.
#pragma once

#include "platform/FileRewrite.h"
#include "platform/posix/FilesReplacement.h"

#include <chrono>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

/// A complete new file.
struct TPendingFile
{
    std::unique_ptr<TReplacement> New;
    std::optional<struct stat> Old; ///< what it replaces; for a backup there may be nothing
    std::size_t Source = 0;         ///< the same for a source and its backup
    TDescriptor OldFile{-1};        ///< of a source: while it is open, replacing it takes little time
};

/// Files wait until there are enough of them. Those of a full batch take their places in a thread of their own, beside
/// the work on the next ones.
struct TRewriteBatch::TImpl
{
    using TClock = std::chrono::steady_clock;

    TImpl() = default;
    ~TImpl();
    TImpl(const TImpl&) = delete;
    TImpl& operator=(const TImpl&) = delete;

    void AddBackup(TPendingFile Backup) { Add(FBackups, std::move(Backup)); }
    void AddSource(TPendingFile Source) { Add(FSources, std::move(Source)); }
    [[nodiscard]] bool IsEmpty() const { return FBackups.empty() && FSources.empty() && FLast.empty(); }
    /// Whether a file is to be replaced, or may just have been.
    [[nodiscard]] bool Awaits(const struct stat& File) const;
    /// Whether files took their places since then which Awaits does not know any longer.
    [[nodiscard]] bool HasPlacedSince(TClock::time_point Time) const { return Time <= FPlaced; }
    void Finish();

private:
    using TPendingFiles = std::vector<TPendingFile>;
    using TIdentity = std::pair<dev_t, ino_t>;

    void Add(TPendingFiles& Target, TPendingFile Item);
    void Begin();
    void PlaceAll();
    void Join();
    void ThrowError();

    TPendingFiles FBackups;
    TPendingFiles FSources;
    TPendingFiles FBegunBackups; ///< these belong to the thread while there is one
    TPendingFiles FBegunSources;
    std::exception_ptr FError;    ///< why one could not be placed
    std::vector<TIdentity> FLast; ///< what they replace
    TClock::time_point FPlaced;   ///< when it was done with what came before
    std::thread FPlacer;
};
