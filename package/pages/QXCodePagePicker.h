#pragma once

#include "host/QXCodePages.h"
#include "host/QXForms.h"

/// Lets the user choose one of the system's code pages.
class TCodePageForm final : public TForm
{
public:
    /// Supported gives the numbers to choose from, or throws std::runtime_error, which is shown.
    explicit TCodePageForm(const std::function<std::vector<int>()>& Supported = QXSupportedCodePages);
    [[nodiscard]] std::string_view ClassName() const override { return "TCodePageForm"; }
    /// The number that was chosen; 0 if none was.
    [[nodiscard]] int GetCodePage() const;

    TComboBox cbCodePages{*this, "cbCodePages", "Available Code Pages"};
    TButton btnOK{*this, "btnOK", "OK"};
    TButton btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Fill(const std::vector<int>& Numbers);
    [[nodiscard]] bool CheckChosen() const;
};
