#include "package/pages/QXFxCopFrame.h"

#include "host/QXForms.h"
#include "host/QXUtilities.h"
#include "package/analysis/QXFxCopOptions.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
constexpr const char* FilesEntry = "Files...";
constexpr const char* FolderEntry = "Folder...";
constexpr const char* OtherEntry = "Other...";
constexpr const char* RulesEntry = "Default Rules Folder";

/// What the user picks from the menu and the dialog behind it.
std::vector<std::string> AskLines(const TFxCopAdding& Adding)
{
    std::vector<std::string> Entries = {FilesEntry, FolderEntry, OtherEntry};
    if (Adding.HasRules)
        Entries.emplace_back(RulesEntry);
    const std::string Entry = QXPopupMenu(std::move(Entries)).value_or("");
    if (Entry == FilesEntry)
        return QXChooseFiles({.Kind = TQXDialogKind::Open, .Filter = std::string(Adding.Filter)});
    if (Entry == RulesEntry)
        return {"$(FxCopDir)\\Rules"};
    std::string Line;
    if (Entry == FolderEntry && QXBrowseForDirectory(Line, Adding.FolderPrompt))
        return {Line};
    Line = "*.*";
    if (Entry == OtherEntry && QXInputQuery(Adding.OtherTitle, Adding.OtherPrompt, Line))
        return {Line};
    return {};
}

/// The line goes behind the last, or away if it is emptied.
void EditLine(TListBox& List)
{
    if (List.Selected.empty())
        return;
    const std::size_t Index = List.Selected.front();
    std::string Line = List.Items[Index];
    if (!QXInputQuery("Edit value", "New value:", Line))
        return;
    List.Selected = {Index};
    DeleteSelected(List);
    if (!Line.empty())
        AddSelected(List, std::move(Line));
}
} // namespace

void TFxCopFrame::OnShowHint(std::string& HintText)
{
    if (const IQXFxCopOptions* Options = FxCopOptions())
        HintText = Options->ReplaceFxCopDir(HintText);
}

void TFxCopFrame::EditLines(TListBox& List, TListButtons& Buttons)
{
    Buttons.btnEdit.OnClick = [&List] { EditLine(List); };
    Buttons.btnDelete.OnClick = [&List] { DeleteSelected(List); };
}

void TFxCopFrame::EditLines(TListBox& List, TListButtons& Buttons, const TFxCopAdding& Adding)
{
    EditLines(List, Buttons);
    Buttons.btnAdd.OnClick = [&List, Adding] {
        for (std::string& Line : AskLines(Adding))
            AddLine(List, std::move(Line));
    };
}

void TFxCopFrame::AddLine(TListBox& List, std::string Line)
{
    const auto IsSame = [Folded = Texts::FoldCase(Line)](const std::string& Item) {
        return Texts::FoldCase(Item) == Folded;
    };
    if (!Line.empty() && std::none_of(List.Items.begin(), List.Items.end(), IsSame))
        List.Items.push_back(std::move(Line));
}
