#include "host/QXForms.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"

namespace
{
TQXAnswer Show(const TQXDialog& Dialog)
{
    return QXDesignApplicationServices().ShowDialog(Dialog);
}

/// Shows a dialog that is answered by one text.
bool AskText(const TQXDialog& Dialog, std::string& Text)
{
    TQXAnswer Answer = Show(Dialog);
    if (!Answer.Accepted || Answer.Texts.empty())
        return false;
    Text = std::move(Answer.Texts.front());
    return true;
}
} // namespace

bool QXBrowseForFile(std::string& FileName, std::string_view Filter, std::string_view Title)
{
    return AskText(
        {.Kind = TQXDialogKind::Open, .Title = std::string(Title), .Filter = std::string(Filter), .File = FileName},
        FileName);
}

bool QXBrowseForDirectory(std::string& Folder, std::string_view Title)
{
    return AskText({.Kind = TQXDialogKind::Folder, .Prompt = std::string(Title), .File = Folder}, Folder);
}

bool QXShowForm(TForm& Form)
{
    QXDesignApplicationServices().ShowForm(Form);
    return Form.IsAccepted();
}

bool QXRunFileDialog(TQXDialog& Dialog)
{
    return AskText(Dialog, Dialog.File);
}

std::vector<std::string> QXChooseFiles(TQXDialog Dialog)
{
    Dialog.IsMultiSelect = true;
    TQXAnswer Answer = Show(Dialog);
    return Answer.Accepted ? std::move(Answer.Texts) : std::vector<std::string>();
}

bool QXInputQuery(std::string_view Title, std::string_view Prompt, std::string& Text)
{
    return AskText(
        {.Kind = TQXDialogKind::Input, .Title = std::string(Title), .Prompt = std::string(Prompt), .Text = Text}, Text);
}

bool QXConfirm(std::string_view Text)
{
    return Show({.Kind = TQXDialogKind::Confirm, .Text = std::string(Text)}).Accepted;
}

void QXShowMessage(std::string_view Text)
{
    static_cast<void>(Show({.Kind = TQXDialogKind::Message, .Text = std::string(Text)}));
}

void QXShowError(std::string_view Text)
{
    static_cast<void>(Show({.Kind = TQXDialogKind::Error, .Text = std::string(Text)}));
}

std::optional<std::string> QXPopupMenu(std::vector<std::string> Entries)
{
    std::string Entry;
    const bool Picked = AskText({.Kind = TQXDialogKind::Menu, .Entries = std::move(Entries)}, Entry);
    return Picked ? std::optional(Entry) : std::nullopt;
}

bool EditPath(IQXDesignApplicationServices& Services, std::string& Text, std::string_view Title,
              std::string_view Caption, std::string_view Mask, int Reserved, std::string_view Separator, bool Words)
{
    return EditPathEx(Services, Text, Title, Caption, Mask, Reserved, Separator, 0, Words);
}

bool EditPathEx(IQXDesignApplicationServices& Services, std::string& Text, std::string_view Title,
                std::string_view Caption, std::string_view Mask, int /*Reserved*/, std::string_view Separator,
                int Option, bool Words)
{
    TQXAnswer Answer = Services.ShowDialog({.Kind = TQXDialogKind::Paths,
                                            .Title = std::string(Title),
                                            .Text = Text,
                                            .Caption = std::string(Caption),
                                            .Mask = std::string(Mask),
                                            .Separator = std::string(Separator),
                                            .Option = Option,
                                            .IsWords = Words});
    if (!Answer.Accepted)
        return false;
    Text = Answer.Texts.empty() ? std::string() : std::move(Answer.Texts.front());
    return true;
}

bool EditTextField(std::string& Text)
{
    return AskText({.Kind = TQXDialogKind::Text, .Text = Text}, Text);
}
