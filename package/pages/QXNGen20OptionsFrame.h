#pragma once

#include "host/QXPages.h"

class TNGen20OptionsFrame final : public TFrame
{
public:
    TNGen20OptionsFrame();
    [[nodiscard]] std::string PageName() const override { return "Options"; }
    void ReadActionData(TCustomQXAction& Action) override;

    TCheckBox boxDebug{*this, "boxDebug", "Generate images for use with a debugger (/Debug)"};
    TCheckBox boxProfile{*this, "boxProfile", "Generate images for use with a profiler (/Profile)"};
    TCheckBox boxNoDep{*this, "boxNoDep",
                       "Minimise the native image dependencies that are generated (/NoDependencies)"};
    TCheckBox boxExeConfig{*this, "boxExeConfig", "Configure using executable assembly (/ExeConfig:)"};
    TEdit txtExeConfig{*this, "txtExeConfig"};
    TCheckBox boxAppBase{*this, "boxAppBase", "Configure using appbase directory (/AppBase:)"};
    TEdit txtAppBase{*this, "txtAppBase"};
    TCheckBox boxQueue{*this, "boxQueue", "Queue for execution by the native image service (/queue)"};
    TComboBox cmbQueuePriority{*this, "cmbQueuePriority", "... with priority", {"1 (highest)", "2", "3 (lowest)"}};
    TCheckBox boxVerbose{*this, "boxVerbose", "Verbose execution (/verbose)"};
};
