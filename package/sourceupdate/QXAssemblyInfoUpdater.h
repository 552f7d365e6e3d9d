#pragma once

#include "host/QXProperties.h"

#include <memory>
#include <string>

class IQXAssemblyInfoUpdater;
class TReadAhead;
class TRewriteBatch;

/// The owner of an updater: it sees every file and every declaration, and may change what is written.
class IQXAssemblyInfoCallBack
{
public:
    virtual ~IQXAssemblyInfoCallBack() = default;
    /// A file is about to be scanned; its entries may still be changed.
    virtual void OnProcessFile(const std::string& FileName, IQXAssemblyInfoUpdater& Updater) = 0;
    /// One line for the log.
    virtual void AssemblyInfoProcessMessage(const std::string& Message) = 0;
    /// A declaration was found; EntryValue is what it is going to hold and may be replaced.
    virtual void AssemblyInfoProcessEntry(const std::string& FileName, const std::string& EntryName,
                                          std::string& EntryValue) = 0;
};

/// Rewrites assembly-level attributes in source files of several languages, one file after the other: declarations that
/// are there in place, others in a block of their own. The form of a declaration is remembered from file to file.
class IQXAssemblyInfoUpdater
{
public:
    virtual ~IQXAssemblyInfoUpdater() = default;
    /// Writes the text of the current file, with its changes, to a file.
    virtual void SaveToFile(const std::string& FileName) = 0;
    /// Must be called before the first file is processed.
    virtual void SetCallBack(IQXAssemblyInfoCallBack& CallBack) = 0;
    /// Adds an attribute for the next file or, while a file is announced, for that one; replaces the value of one of
    /// the same name. An empty value empties a declaration that is there. IsQuoted: a new declaration has the value
    /// in quotes.
    virtual void AddEntry(const std::string& EntryName, const std::string& EntryValue, bool IsQuoted) = 0;
    /// Takes an attribute back, if there is one of this name.
    virtual void RemoveEntry(const std::string& EntryName) = 0;
    /// The object that scripts are given.
    [[nodiscard]] virtual TQXPersistent& GetImplementation() = 0;
    /// Updates a file with the entries, which are gone afterwards, and first copies it to FileName.bak with Backup.
    /// False if it is missing, read-only, empty or in an encoding that cannot be edited. Throws EFileError.
    [[nodiscard]] virtual bool ProcessFile(const std::string& FileName, bool Backup) = 0;
};

/// What an updater does with files.
struct TAssemblyInfoMode
{
    bool UpdateOnly = false;         ///< adds no declarations that a file lacks
    bool DryRun = false;             ///< writes nothing, and says what it would write
    TReadAhead* ReadAhead = nullptr; ///< of the files to be processed, in their order
    TRewriteBatch* Batch = nullptr;  ///< that the files are replaced with, else each by itself
};

/// An updater without entries, which has not met a declaration yet: one for all files of a run.
[[nodiscard]] std::unique_ptr<IQXAssemblyInfoUpdater> NewAssemblyInfoUpdater(TAssemblyInfoMode Mode);

/// Makes AddEntry and RemoveEntry known to scripts.
void RegisterAssemblyInfoMethods();
