#pragma once

#include "host/QXPages.h"
#include "package/pages/QXListButtons.h"

class TNDOCFrame final : public TFrame, public IQXPageValidation
{
public:
    TNDOCFrame();
    [[nodiscard]] std::string PageName() const override { return "NDoc Options"; }
    [[nodiscard]] bool Validate() override { return true; }

    TRadioButton rbProj{*this, "rbProj", "Use NDoc Project File"};
    TEdit txtProjFile{*this, "txtProjFile"};
    TRadioButton rbAss{*this, "rbAss", "Specify Assemblies"};
    TListBox lbAssemblies{*this, "lbAssemblies"};
    TListButtons Buttons{*this, lbAssemblies, {"Add", "Edit", "Remove"}, {"btnAdd", "btnEdit", "btnRemove"}};
    TRadioButton rbFind{*this, "rbFind", "Search for Assembiles (specify a starting directory)"};
    TEdit txtFindDir{*this, "txtFindDir"};
    TEdit txtMaxDepth{*this, "txtMaxDepth", "Maximum Depth"};
    TPanel pnlNDocVersion{*this, "pnlNDocVersion"};
    TLabel lblNDocVersion{pnlNDocVersion, "lblNDocVersion", "NDoc Version"};
    TRadioButton rbNDoc12{pnlNDocVersion, "rbNDoc12", "1.2"};
    TRadioButton rbNDoc13{pnlNDocVersion, "rbNDoc13", "1.3"};
    TCheckBox chkVerbose{*this, "chkVerbose", "Verbose Output"};
    TEdit txtNamespaceSumm{*this, "txtNamespaceSumm", "Namespace summaries file:"};

private:
    void BindAll();
    void BindAssemblies();
    void BrowseFindDir();
    void AddAssembly();
    void EditAssembly();
    void RemoveAssembly();
    void ShowAssemblies();
    void TellVersion() const;

    TStringList FAssemblies; ///< the lines that the list box shows in its own way
};
