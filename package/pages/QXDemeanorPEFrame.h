#pragma once

#include "host/QXPages.h"

class TDemeanorPEFrame final : public TFrame
{
public:
    TDemeanorPEFrame();
    [[nodiscard]] std::string PageName() const override { return "Settings"; }

    TEdit edAssembly{*this, "edAssembly", "Assembly:"};
    TEdit edOutFolder{*this, "edOutFolder", "Output Folder:"};
    TEdit edReportFile{*this, "edReportFile", "Report file:"};
    TRadioButton rbNames{*this, "rbNames", "Names"};
    TRadioButton rbNumbers{*this, "rbNumbers", "Numbers"};
    TRadioButton rbUnicode{*this, "rbUnicode", "Unicode"};
    TCheckBox cbObfuscateAll{*this, "cbObfuscateAll", "Obfuscate All"};
    TCheckBox cbCompilerControlled{*this, "cbCompilerControlled", "Compiler Controlled"};
    TCheckBox cbMetadata{*this, "cbMetadata", "Obfuscate metadata insitu"};
    TCheckBox cbForce{*this, "cbForce", "Force parameters"};
    TCheckBox cbVerbose{*this, "cbVerbose", "Verbose"};
    TCheckList lbCategories{
        *this,
        "lbCategories",
        "",
        {"Enumerations", "Events", "Fields", "Method", "Parameters", "Properties", "Types", "Resources"}};

private:
    void BindAll();
    void ProposeTargets();
};
