#pragma once

#include "package/pages/QXFxCopFrame.h"

class TFrameFxCopAdditional final : public TFxCopFrame
{
public:
    TFrameFxCopAdditional();
    [[nodiscard]] std::string PageName() const override { return "Directories and Imports"; }

    TListBox lbDirectories{*this, "lbDirectories", "Target assemblies dependency folders"};
    TListButtons DirectoryButtons{*this,
                                  lbDirectories,
                                  {"Add...", "Edit...", "Delete"},
                                  {"btnAddDirectory", "btnEditDirectory", "btnDeleteDirectory"}};
    TListBox lbImports{*this, "lbImports", "Import Reports and Projects"};
    TListButtons ImportButtons{
        *this, lbImports, {"Add", "Edit...", "Delete"}, {"btnAddImport", "btnEditImport", "btnDeleteImport"}};

private:
    void AddDirectory();
};
