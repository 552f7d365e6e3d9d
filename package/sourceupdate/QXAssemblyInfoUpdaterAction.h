#pragma once

#include "host/QXAction.h"
#include "package/sourceupdate/QXAssemblyInfoUpdater.h"

#include <string>
#include <string_view>
#include <vector>

/// Writes assembly attributes into the source files that names and masks select.
class TQXAssemblyInfoUpdaterAction final : public TQXAction, public IQXAssemblyInfoCallBack
{
public:
    TQXAssemblyInfoUpdaterAction();

    static std::string GetActionName() { return "AssemblyInfo Updater"; }
    static int GetHelpTopicID() { return 2500; }
    static std::string GetQuickHelpFilename() { return "Plugins\\AssemblyInfoUpdater.html"; }

    void InitialiseScriptParams(TQXScript& Script) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    [[nodiscard]] bool Execute() override;
    void TerminateAction() override { FTerminated = true; }

    void OnProcessFile(const std::string& FileName, IQXAssemblyInfoUpdater& Updater) override;
    void AssemblyInfoProcessMessage(const std::string& Message) override { SendMessage(Message); }
    void AssemblyInfoProcessEntry(const std::string& FileName, const std::string& EntryName,
                                  std::string& EntryValue) override;

    TStringList Selection;
    bool BackupFiles = true;
    bool Recurse = false;
    TStringList Attributes;
    bool UpdateOnly = false;

private:
    [[nodiscard]] bool RunScript(const char* Name);
    [[nodiscard]] bool ProcessFile(IQXAssemblyInfoUpdater& Updater, const std::string& FileName) const;
    [[nodiscard]] bool BuildFileList();
    void ProcessWildCard(const std::string& Folder, std::string_view Mask);
    void Visit(const std::string& Folder) const;
    [[nodiscard]] bool ProcessFiles();
    [[nodiscard]] bool ProcessFiles(TRewriteBatch& Batch);
    [[nodiscard]] bool AddEntriesToUpdater(IQXAssemblyInfoUpdater& Updater) const;

    std::vector<std::string> FFiles;
    bool FTerminated = false;
};
