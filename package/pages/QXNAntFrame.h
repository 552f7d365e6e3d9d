#pragma once

#include "host/QXPages.h"

class TNAntFrame final : public TFrame
{
public:
    TNAntFrame();
    [[nodiscard]] std::string PageName() const override { return "NAnt"; }

    TEdit txtBuildFile{*this, "txtBuildFile", "Build file :"};
    TEdit txtFramework{*this, "txtFramework", "Default Framework :"};
    TEdit txtTargets{*this, "txtTargets", "separate multiple targets with spaces"};
    TGrid veProps{*this, "veProps", "", {"Property", "Value"}};
    TComboBox cbLogLevel{*this, "cbLogLevel", "Logging Level :", {"Quiet", "Normal", "Verbose", "Debug"}};
    TComboBox cbIndent{*this, "cbIndent", "Indentation Level :", {"<default>", "0", "1", "2", "3", "4", "5", "6"}};
    TCheckBox chkNoLogo{*this, "chkNoLogo", "Surpress display of logo banner"};
    TCheckBox chkLogFile{*this, "chkLogFile", "Output to log file"};
    TEdit txtLogFile{*this, "txtLogFile", "Log file :"};
};
