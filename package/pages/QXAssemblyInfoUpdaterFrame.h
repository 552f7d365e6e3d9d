#pragma once

#include "host/QXPages.h"

/// The files whose attributes are updated, and how.
class TAssemblyInfoUpdaterFrame final : public TFrame
{
public:
    TAssemblyInfoUpdaterFrame();
    [[nodiscard]] std::string PageName() const override { return "Options"; }

    TEdit RzButtonEdit1{*this, "RzButtonEdit1"};
    TMemo memFiles{*this, "memFiles", "Files"};
    TCheckBox chkBackupFiles{*this, "chkBackupFiles", "Backup Files"};
    TCheckBox chkRecurse{*this, "chkRecurse", "Recurse Subdirectories"};
    TCheckBox chkUpdateOnly{*this, "chkUpdateOnly", "Update Only"};
};
