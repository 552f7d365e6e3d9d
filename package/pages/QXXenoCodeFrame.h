#pragma once

#include "host/QXPages.h"
#include "package/analysis/QXXenoCodeOptions.h"
#include "package/pages/QXListButtons.h"

class TXenoCodeFrame final : public TFrame
{
public:
    TXenoCodeFrame();
    [[nodiscard]] std::string PageName() const override { return "Settings"; }

    TRadioButton rbXenoCode2004{*this, "rbXenoCode2004", "XenoCode 2004"};
    TRadioButton rbXenoCode2005{*this, "rbXenoCode2005", "XenoCode 2005"};
    TRadioButton rbXenoCode2006{*this, "rbXenoCode2006", "XenoCode 2006"};
    TEdit edConfig{*this, "edConfig"};
    TEdit edOutFolder{*this, "edOutFolder", "Output Folder:"};
    TEdit edMapFile{*this, "edMapFile", "Map File:"};
    TComboBox cbPresets{*this, "cbPresets"};
    TEdit edPassPhrase{*this, "edPassPhrase", "Passphrase:"};
    TCheckBox chkEncrypt{*this, "chkEncrypt", "Encrypt Strings"};
    TListBox lbWatermarks{*this, "lbWatermarks", "Watermarks"};
    TListButtons Buttons{*this, lbWatermarks, {"&Add...", "&Edit...", "&Delete"}};

private:
    void BindAll();
    void BindPresets();
    void SetUpWatermarks();
    [[nodiscard]] TXenoCodeVersion Version() const;
    void BrowseOutFolder();
    void BrowseMapFile();
    [[nodiscard]] bool AskWatermark(std::string& Text) const;
    void AddWatermark();
    void EditWatermark();
};
