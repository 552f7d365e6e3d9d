// The pages of the actions for files and programs.
#pragma once

#include "pages/QXFileListGroup.h"

class TQXRunProgramFrame final : public TFrame
{
public:
    TQXRunProgramFrame();
    [[nodiscard]] std::string PageName() const override { return "Run Program"; }

    TEdit txtProgram{*this, "txtProgram", "Program :"};
    TEdit txtArguments{*this, "txtArguments", "Arguments :"};
    TEdit txtStartDir{*this, "txtStartDir", "Start Directory :"};
    TEdit txtSuccessCodes{*this, "txtSuccessCodes", "Exit codes that are success, parted by ; :"};
};

class TQXCopyFilesFrame final : public TFrame
{
public:
    TQXCopyFilesFrame();
    [[nodiscard]] std::string PageName() const override { return "Copy Files"; }

    TQXFileListGroup Files{*this};
    TEdit txtTargetDir{*this, "txtTargetDir", "Target Directory :"};
    TCheckBox chkRecurse{*this, "chkRecurse", "Include what lies in folders below"};
    TCheckBox chkKeepFolders{*this, "chkKeepFolders", "Keep folders"};
    TCheckBox chkOnlyNewer{*this, "chkOnlyNewer", "Only newer files"};
};

class TQXDeleteFilesFrame final : public TFrame
{
public:
    TQXDeleteFilesFrame();
    [[nodiscard]] std::string PageName() const override { return "Delete Files"; }

    TQXFileListGroup Files{*this};
    TCheckBox chkRecurse{*this, "chkRecurse", "Include what lies in folders below"};
    TCheckBox chkRemoveFolders{*this, "chkRemoveFolders", "Remove folders"};
    TCheckBox chkAllowOutside{*this, "chkAllowOutside", "Allow files outside of the project's folder"};
};

class TQXMakeArchiveFrame final : public TFrame
{
public:
    TQXMakeArchiveFrame();
    [[nodiscard]] std::string PageName() const override { return "Make Archive"; }

    TQXFileListGroup Files{*this};
    TEdit txtBaseDir{*this, "txtBaseDir", "Base Directory :"};
    TEdit txtArchiveFile{*this, "txtArchiveFile", "Archive File (.zip, .tar.gz, .tgz) :"};
};
