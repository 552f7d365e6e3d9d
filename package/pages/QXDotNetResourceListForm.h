#pragma once

#include "host/QXForms.h"

/// Edits a list of resources, each a file with an identifier or without one.
class TDotNetResourceListEditForm final : public TForm
{
public:
    TDotNetResourceListEditForm(std::string_view Caption, std::string_view Filter);
    [[nodiscard]] std::string_view ClassName() const override { return "TDotNetResourceListEditForm"; }
    /// Takes the list apart: commas and line breaks part it.
    void Load(std::string_view List);
    /// The list, parted by commas.
    [[nodiscard]] std::string List() const;

    TGrid ResourceList{*this, "ResourceList", "", {"Resource File", "Identifier (optional)"}};
    TLabel lblKeys{*this, "lblKeys",
                   "Use Ctrl+Del to remove an entry from the list. Use Ctrl+Insert to add a new entry."};
    TButton btnOK{*this, "btnOK", "OK"};
    TButton btnCancel{*this, "btnCancel", "Cancel"};
};

/// Shows the form; true if it was accepted, with the new list in List.
[[nodiscard]] bool EditResourceList(const std::string& Caption, const std::string& Filter, std::string& List);
