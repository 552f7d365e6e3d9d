#pragma once

#include "host/QXPages.h"

class TNUnitActionFrame final : public TFrame
{
public:
    TNUnitActionFrame();
    [[nodiscard]] std::string PageName() const override { return "NUnit Options"; }

    TRadioButton rbProjFile{*this, "rbProjFile", "NUnit Project File"};
    TEdit txtProjectFile{*this, "txtProjectFile"};
    TRadioButton rbAssemblies{*this, "rbAssemblies", "Assemblies"};
    TEdit txtAssembly{*this, "txtAssembly"};
    TMemo memAssemblies{*this, "memAssemblies"};
    TEdit txtFixture{*this, "txtFixture", "Fixture"};
    TEdit txtOutputFile{*this, "txtOutputFile", "XML Output File"};
    TEdit txtTransformFile{*this, "txtTransformFile", "Transform File"};
    TEdit txtProjConfig{*this, "txtProjConfig", "Project Configuration"};
    TCheckBox chkNoLogo{*this, "chkNoLogo", "Don't display Logo"};
    TCheckBox chkXMLOutput{*this, "chkXMLOutput", "Display XML in output"};
    TCheckBox chkFailIfNoTests{*this, "chkFailIfNoTests", "Fail if no tests run"};
};
