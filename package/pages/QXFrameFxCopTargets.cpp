#include "package/pages/QXFrameFxCopTargets.h"

#include "package/analysis/QXFxCopAction.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
/// Case counts only between lines that are else the same.
bool IsBefore(const std::string& Left, const std::string& Right)
{
    const std::string FoldedLeft = Texts::FoldCase(Left);
    const std::string FoldedRight = Texts::FoldCase(Right);
    return FoldedLeft != FoldedRight ? FoldedLeft < FoldedRight : Left < Right;
}

std::vector<std::string> SortedLines(const std::string& CommaText)
{
    TStringList Lines;
    Lines.SetCommaText(CommaText);
    std::vector<std::string> Result = Lines.Items();
    std::sort(Result.begin(), Result.end(), IsBefore);
    return Result;
}

/// What is selected stays so at its new place.
void Sort(TListBox& List)
{
    std::vector<std::pair<std::string, bool>> Lines;
    for (const std::string& Line : List.Items)
        Lines.emplace_back(Line, false);
    for (const std::size_t Index : List.Selected)
        Lines[Index].second = true;
    std::sort(Lines.begin(), Lines.end(),
              [](const auto& Left, const auto& Right) { return IsBefore(Left.first, Right.first); });
    List.Selected.clear();
    for (std::size_t Index = 0; Index < Lines.size(); ++Index)
    {
        List.Items[Index] = Lines[Index].first;
        if (Lines[Index].second)
            List.Selected.push_back(Index);
    }
}
} // namespace

TFrameFxCopTargets::TFrameFxCopTargets()
{
    Bind(edProjectFile, &TQXFxCopAction::ProjectFile);
    // A text whose lines are only shown in another order stays as it is.
    BindMember(
        lbTargets, &TQXFxCopAction::Targets, [this](const std::string& Value) { lbTargets.Show(SortedLines(Value)); },
        [this](std::string& Value) {
            if (SortedLines(Value) != lbTargets.Items)
                Value = TStringList(lbTargets.Items).CommaText();
        });
    AddRule([this] { Sort(lbTargets); });
    edProjectFile.OnBrowse = [this] {
        GetFileByDialog(edProjectFile, {.Kind = TQXDialogKind::Open,
                                        .Filter = "FxCop Projects (*.FxCop)|*.FxCop|All files (*.*)|*.*",
                                        .DefaultExtension = "FxCop"});
    };
    EditLines(lbTargets, Buttons,
              {.Filter = FileFilters::ExesAndDlls,
               .FolderPrompt = "Select a folder containing target assemblies",
               .OtherTitle = "Other target",
               .OtherPrompt = "Filename:"});
}
