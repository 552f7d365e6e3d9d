// What pages ask the user: dialogs and small forms. The program that shows pages draws them, or answers for its user.
#pragma once

#include "host/QXBindings.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

enum class TQXDialogKind { Open, Save, Folder, Input, Confirm, Error, Message, Menu, Text, Paths };
constexpr auto QXElements(TQXDialogKind)
{
    return std::array<std::string_view, 10>{"open",  "save",    "folder", "input", "confirm",
                                            "error", "message", "menu",   "text",  "paths"};
}

/// A dialog and what it is given. Which members count follows from its kind.
struct TQXDialog
{
    TQXDialogKind Kind;
    std::string Title{};
    std::string Prompt{};
    std::string Filter{}; ///< of files: pairs of caption and masks, all parted by "|"
    std::string File{};   ///< where it begins
    std::string Folder{}; ///< where it begins without a file
    std::optional<std::size_t> FilterIndex{};
    std::string DefaultExtension{};
    bool IsMultiSelect = false;
    bool MustExist = false;
    std::string Text{};                 ///< the message, or the text to begin with
    std::vector<std::string> Entries{}; ///< of a menu; "-" parts groups
    std::string Caption{};              ///< of a list of paths, and so the rest
    std::string Mask{};
    std::string Separator{};
    int Option = 0;
    bool IsWords = false; ///< the list holds plain words
};

/// What the user answered: nothing is "cancelled", or "no".
struct TQXAnswer
{
    bool Accepted = false;
    std::vector<std::string> Texts{}; ///< the files, the folder, the text or the menu entry chosen
};

/// A small form that is shown until its user ends it.
class TForm : public TSurface
{
public:
    std::string Title;

    [[nodiscard]] virtual std::string_view ClassName() const = 0;
    /// Ends it. The Escape key cancels.
    void Close(bool Accepted) { FResult = Accepted; }
    [[nodiscard]] bool IsClosed() const { return FResult.has_value(); }
    [[nodiscard]] bool IsAccepted() const { return FResult.value_or(false); }

protected:
    /// The first button accepts the form while MayAccept gives True, the second cancels it.
    void CloseBy(TButton& Ok, TButton& Cancel, std::function<bool()> MayAccept = {})
    {
        Ok.OnClick = [this, MayAccept = std::move(MayAccept)] {
            if (!MayAccept || MayAccept())
                Close(true);
        };
        Cancel.OnClick = [this] { Close(false); };
    }

private:
    std::optional<bool> FResult;
};

/// Shows a form; true if it was accepted.
[[nodiscard]] bool QXShowForm(TForm& Form);

/// Asks for a file by a dialog of the page's own; true if one was chosen and put into Dialog.File.
[[nodiscard]] bool QXRunFileDialog(TQXDialog& Dialog);
/// Asks for several files; none if it was cancelled.
[[nodiscard]] std::vector<std::string> QXChooseFiles(TQXDialog Dialog);
/// Asks for a line of text, beginning with Text; true if it was confirmed.
[[nodiscard]] bool QXInputQuery(std::string_view Title, std::string_view Prompt, std::string& Text);
/// Asks a question; true for Yes.
[[nodiscard]] bool QXConfirm(std::string_view Text);
void QXShowMessage(std::string_view Text);
/// Shows an error box with an OK button.
void QXShowError(std::string_view Text);
/// Opens a menu under the button; none if no entry was picked.
[[nodiscard]] std::optional<std::string> QXPopupMenu(std::vector<std::string> Entries);

class IQXDesignApplicationServices;

/// The editor of a list of paths or, with Words, of plain words: Text is the list joined by Separator. True if it was
/// confirmed, with the list in Text.
[[nodiscard]] bool EditPath(IQXDesignApplicationServices& Services, std::string& Text, std::string_view Title,
                            std::string_view Caption, std::string_view Mask, int Reserved, std::string_view Separator,
                            bool Words);
/// The same with an option: 1 takes folders and no files.
[[nodiscard]] bool EditPathEx(IQXDesignApplicationServices& Services, std::string& Text, std::string_view Title,
                              std::string_view Caption, std::string_view Mask, int Reserved, std::string_view Separator,
                              int Option, bool Words);
/// The editor of a text of any length; true if it was confirmed.
[[nodiscard]] bool EditTextField(std::string& Text);
