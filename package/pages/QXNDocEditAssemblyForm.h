#pragma once

#include "host/QXForms.h"

/// Asks for an assembly and the documentation that the compiler made of it.
class TNDocEditAssemblyForm final : public TForm
{
public:
    /// Begins with these files.
    TNDocEditAssemblyForm(std::string Assembly, std::string Documentation);
    [[nodiscard]] std::string_view ClassName() const override { return "TNDocEditAssemblyForm"; }
    /// The line assembly=documentation; empty without an assembly.
    [[nodiscard]] std::string Line() const;

    TEdit txtAss{*this, "txtAss", "Assembly Filename :"};
    TEdit txtDoc{*this, "txtDoc", "XML Doc Filename :"};
    TButton btnOK{*this, "btnOK", "OK"};
    TButton btnCancel{*this, "btnCancel", "Cancel"};

private:
    void BrowseAssembly();
};
