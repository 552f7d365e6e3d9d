#pragma once

#include "host/QXPages.h"
#include "package/documentation/QXNDocSettings.h"
#include "package/pages/QXNDocPropertyPage.h"

#include <array>
#include <functional>

class TNDocDocumenterFrame final : public TFrame, public IQXNDocPropertyPage
{
public:
    TNDocDocumenterFrame();
    [[nodiscard]] std::string PageName() const override { return "Documenter"; }
    void ReadActionData(TCustomQXAction& Action) override;
    void WriteActionData(TCustomQXAction& Action) override;
    void NDocVersionChanged(TNDocVersion Version) override;

    TComboBox cbDocumenter{*this, "cbDocumenter"};
    TGrid ValueListEditor1{*this,
                           "ValueListEditor1",
                           "Documenter Properties (these have no effect if using an NDoc Project File)",
                           {"Property", "Value"}};

private:
    void BindSettings();
    void ListDocumenters(TNDocVersion Version);
    void SaveSettings();
    void ShowSettings();

    std::array<TStringList, QXElements(TDocumenter{}).size()> FSettings; ///< by documenter, as changed on this page
    TDocumenter FShown = docDefault;                                     ///< whose settings the grid shows
    bool FIsByVersion = false; ///< only the documenters of one version are listed
};
