#include "package/pages/QXCodePagePicker.h"

#include "platform/Text.h"

#include <stdexcept>

TCodePageForm::TCodePageForm(const std::function<std::vector<int>()>& Supported)
{
    Title = "Choose a Code page";
    CloseBy(btnOK, btnCancel, [this] { return CheckChosen(); });
    try
    {
        Fill(Supported());
    }
    catch (const std::runtime_error& Error)
    {
        QXShowMessage(std::string("Unable to retrieve code pages : ") + Error.what());
    }
}

void TCodePageForm::Fill(const std::vector<int>& Numbers)
{
    for (const int Number : Numbers)
        cbCodePages.Items.push_back(std::to_string(Number) + " - " + CodePageToString(Number));
}

bool TCodePageForm::CheckChosen() const
{
    if (!cbCodePages.Selected())
        QXShowMessage("Please select a code page.");
    return cbCodePages.Selected().has_value();
}

int TCodePageForm::GetCodePage() const
{
    const std::string& Entry = cbCodePages.Text;
    return Texts::ParseWhole<int>(std::string_view(Entry).substr(0, Entry.find(' '))).value_or(0);
}
