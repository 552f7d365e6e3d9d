#pragma once

#include "package/pages/QXListCompilerFrames.h"

class TVBDotNetCompilerAssembliesFrame final : public TListCompilerAssembliesFrame
{
public:
    TVBDotNetCompilerAssembliesFrame();

    TModulesGroup Modules{*this};
    TReferencesGroup References{*this, 0};
    TEdit txtImports{*this, "txtImports", "Import a namespace from a specified assembly (/imports)"};
    TEdit txtKeyContainer{*this, "txtKeyContainer",
                          "Specify a key container name for a key pair to give an assembly a strong name"};
    TEdit txtKeyfile{*this, "txtKeyfile",
                     "Specify a file containing a key or key pair to give an assembly a strong name"};
    TCheckBox chkdelaysign{*this, "chkdelaysign", "Partially sign the assembly (/delaysign)"};
};
