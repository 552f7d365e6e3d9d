#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "package/pages/QXDotNetToolBaseFrame.h"

/// The page of the project compilers; those of the other languages differ in their caption.
class TProjectCompilerFrame : public TDotNetToolBaseFrame
{
public:
    TProjectCompilerFrame();
    [[nodiscard]] std::string PageName() const override { return "C# Project"; }
    void InitPage(TCustomQXAction& Action) override;
    void ReadActionData(TCustomQXAction& Action) override;

    TEdit txtProjectFile{*this, "txtProjectFile", "Project File"};
    TLabel lblNote{*this, "lblNote", "(Use the MSBuild action for Visual Studio 2005 projects.)"};
    TComboBox cbConfigs{*this, "cbConfigs", "Configuration"};
    TButton Button1{*this, "Button1", "Reload"};
    TEdit txtAssemblySearchPaths{*this, "txtAssemblySearchPaths", "Assembly Search Paths"};
    TEdit txtCFResCompiler{*this, "txtCFResCompiler", "Compact Framework Resource Compiler"};
    TEdit txtCFPath{*this, "txtCFPath", "Compact Framework Path"};

private:
    /// Lists the configurations of the project file; gives why that failed, or an empty text.
    std::string LoadConfigs();
    /// For an act of the user, who learns why it failed.
    void ReloadConfigs();
    void ShowConfig();

    TQXManagedCompilerAction* FAction = nullptr;
    /// What is written, whether the list has it or not: the action's, or what the user chose.
    std::string FConfigName;
};
