#pragma once

#include "host/QXPages.h"
#include "package/pages/QXListButtons.h"

class TDemeanorExcludeFrame final : public TFrame
{
public:
    TDemeanorExcludeFrame();
    [[nodiscard]] std::string PageName() const override { return "Excluded Types and Members"; }

    TListView lvExcludes{*this, "lvExcludes"};
    TListButtons Buttons{*this, lvExcludes, {"Add", "Edit...", "Delete"}};

private:
    void ShowItems(const char* Kind, const TStringList& Lines);
    [[nodiscard]] TStringList ItemsOf(const char* Kind) const;
    [[nodiscard]] bool AskItem(std::string& Text) const;
    void AddItem();
    void EditItem();
};
