#pragma once

#include "package/pages/QXFxCopFrame.h"

class TFrameFxCopOptions final : public TFxCopFrame
{
public:
    TFrameFxCopOptions();
    [[nodiscard]] std::string PageName() const override { return "Options"; }

    TEdit edOutput{*this, "edOutput", "Output filename:"};
    TEdit edPlatform{*this, "edPlatform", "Platform folder:"};
    TEdit edXSLT{*this, "edXSLT", "Transformation XSL:"};
    TCheckBox chkCapture{*this, "chkCapture", "Capture Output"};
    TCheckBox chkSummary{*this, "chkSummary", "Include Summary Report in Output"};
    TCheckBox chkUpdateProject{*this, "chkUpdateProject", "Update project file"};
    TCheckBox chkVerbose{*this, "chkVerbose", "Verbose"};
};
