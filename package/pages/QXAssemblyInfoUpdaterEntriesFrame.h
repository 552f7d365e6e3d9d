#pragma once

#include "host/QXPages.h"

/// The attributes that are set.
class TAssemblyInfoUpdaterEntriesFrame final : public TFrame
{
public:
    TAssemblyInfoUpdaterEntriesFrame();
    [[nodiscard]] std::string PageName() const override { return "Attributes"; }
    void WriteActionData(TCustomQXAction& Action) override;

    TGrid AttributeList{*this, "AttributeList", "", {"Attribute", "Value"}};
    TLabel lblKeys{*this, "lblKeys",
                   "Use Ctrl+Del to remove a variable from the list. Use Shift+Insert to add a new Attribute."};
};
