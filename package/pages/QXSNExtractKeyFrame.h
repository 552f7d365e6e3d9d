#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"

class TSNExtractKeyFrame final : public TDotNetToolBaseFrame
{
public:
    TSNExtractKeyFrame();
    [[nodiscard]] std::string PageName() const override { return "Extract Public Key"; }

    TPanel pnlInput{*this, "pnlInput"};
    TRadioButton rbInputKeyFile{pnlInput, "rbInputKeyFile", "Extract the public key from a key file"};
    TEdit txtInputKeyfile{pnlInput, "txtInputKeyfile"};
    TRadioButton rbInputAssembly{pnlInput, "rbInputAssembly", "Extract the public key from an assembly"};
    TEdit txtAssembly{pnlInput, "txtAssembly"};
    TRadioButton rbInputContainer{pnlInput, "rbInputContainer", "Extract the public key from a container"};
    TEdit txtContainer{pnlInput, "txtContainer"};

    TPanel pnlOutput{*this, "pnlOutput"};
    TRadioButton rbOutputKeyfile{pnlOutput, "rbOutputKeyfile", "Output to Key File"};
    TEdit txtOutputKeyFile{pnlOutput, "txtOutputKeyFile"};
    TRadioButton rbOutputCSV{pnlOutput, "rbOutputCSV", "Output to CSV"};
    TEdit txtCSV{pnlOutput, "txtCSV"};
    TRadioButton rbOutputClipboard{pnlOutput, "rbOutputClipboard", "Output to Clipboard as CSV"};
};
