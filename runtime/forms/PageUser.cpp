#include "runtime/forms/PageUser.h"

#include <fmt/format.h>

namespace
{
void CheckUsable(const TControl& Control)
{
    if (!Control.IsVisible())
        throw EPageUseError(fmt::format("\"{}\" is not visible", Control.Name()));
    if (!Control.IsEnabled())
        throw EPageUseError(fmt::format("\"{}\" is disabled", Control.Name()));
}

void CheckIndex(const TControl& Control, std::string_view What, std::size_t Index, std::size_t Count)
{
    if (Index >= Count)
        throw EPageUseError(fmt::format("\"{}\" has no {} {}: it has {}", Control.Name(), What, Index, Count));
}

/// In ascending order, each once.
TQXIndices Ordered(const TControl& Control, TQXIndices Indices, std::size_t Count)
{
    CheckUsable(Control);
    for (const std::size_t Index : Indices)
        CheckIndex(Control, "item", Index, Count);
    std::sort(Indices.begin(), Indices.end());
    Indices.erase(std::unique(Indices.begin(), Indices.end()), Indices.end());
    return Indices;
}

/// The event that a button of the control has.
const TQXEvent& Needed(const TControl& Control, const TQXEvent& Event, std::string_view What)
{
    CheckUsable(Control);
    if (!Event)
        throw EPageUseError(fmt::format("\"{}\" has no {}", Control.Name(), What));
    return Event;
}
} // namespace

void TPageUser::Do(const TQXEvent& Event) const
{
    if (Event)
        Event();
    FAfterAct();
}

void TPageUser::Type(TEdit& Edit, std::string Text)
{
    CheckUsable(Edit);
    Edit.Text = std::move(Text);
    Do(Edit.OnChange);
}

void TPageUser::Type(TMemo& Memo, const TStringList& Lines)
{
    CheckUsable(Memo);
    Memo.Lines.SetText(Lines.Text());
    Do(Memo.OnChange);
}

void TPageUser::Type(TComboBox& List, const std::string& Text)
{
    CheckUsable(List);
    if (!List.IsEditable && std::find(List.Items.begin(), List.Items.end(), Text) == List.Items.end())
        throw EPageUseError(fmt::format("\"{}\" has no entry \"{}\"", List.Name(), Text));
    List.Text = Text;
    Do(List.OnChange);
}

void TPageUser::Tick(TCheckBox& Box, bool Checked)
{
    CheckUsable(Box);
    if (std::exchange(Box.Checked, Checked) != Checked)
        Do(Box.OnClick);
}

void TPageUser::Pick(TRadioButton& Button)
{
    CheckUsable(Button);
    Button.Check();
    Do(Button.OnClick);
}

void TPageUser::Pick(TComboBox& List, std::size_t Index)
{
    CheckUsable(List);
    CheckIndex(List, "entry", Index, List.Items.size());
    List.Select(Index);
    Do(List.OnChange);
}

void TPageUser::Select(TListBox& List, TQXIndices Selected)
{
    Selected = Ordered(List, std::move(Selected), List.Items.size());
    if (Selected.size() > 1 && !List.IsMultiSelect)
        throw EPageUseError(fmt::format("only one line of \"{}\" can be selected", List.Name()));
    List.Selected = std::move(Selected);
    Do(List.OnChange);
}

void TPageUser::Select(TListView& List, TQXIndices Selected)
{
    List.Selected = Ordered(List, std::move(Selected), List.Items.size());
    Do(List.OnChange);
}

void TPageUser::Check(TCheckList& List, TQXIndices Checked)
{
    List.Checked = Ordered(List, std::move(Checked), List.Items.size());
    Do(List.OnChange);
}

void TPageUser::Fill(TGrid& Grid, std::vector<TGrid::TRow> Rows)
{
    CheckUsable(Grid);
    for (const TGrid::TRow& Row : Rows)
        if (Row.size() != Grid.Columns.size())
            throw EPageUseError(fmt::format("a row of \"{}\" has {} texts", Grid.Name(), Grid.Columns.size()));
    Grid.Rows = std::move(Rows);
    Do(Grid.OnChange);
}

void TPageUser::Click(TControl& Control)
{
    if (Control.Kind() == TQXControlKind::CheckBox)
    {
        auto& Box = static_cast<TCheckBox&>(Control);
        return Tick(Box, !Box.Checked);
    }
    if (Control.Kind() == TQXControlKind::RadioButton)
        return Pick(static_cast<TRadioButton&>(Control));
    Do(Needed(Control, Control.OnClick, "click"));
}

void TPageUser::DoubleClick(TControl& Control)
{
    if (Control.Kind() == TQXControlKind::ListBox)
        return Do(Needed(Control, static_cast<TListBox&>(Control).OnDoubleClick, "double click"));
    if (Control.Kind() == TQXControlKind::ListView)
        return Do(Needed(Control, static_cast<TListView&>(Control).OnDoubleClick, "double click"));
    throw EPageUseError(fmt::format("\"{}\" has no double click", Control.Name()));
}

void TPageUser::Browse(TEdit& Edit)
{
    Do(Needed(Edit, Edit.OnBrowse, "browse button"));
}

void TPageUser::Accept(TEdit& Edit)
{
    Do(Needed(Edit, Edit.OnAccept, "accept button"));
}

void TPageUser::Ellipsis(TGrid& Grid, std::size_t Row, std::size_t Column)
{
    CheckUsable(Grid);
    CheckIndex(Grid, "row", Row, Grid.Rows.size());
    if (!Grid.OnEllipsis || Column != Grid.EllipsisColumn)
        throw EPageUseError(fmt::format("\"{}\" has no button in column {}", Grid.Name(), Column));
    Grid.OnEllipsis(Row);
    Do(Grid.OnChange);
}

std::optional<std::size_t> TPageUser::PressInGrid(TGrid& Grid, const std::string& Key, std::optional<std::size_t> Row)
{
    if (Row)
        CheckIndex(Grid, "row", *Row, Grid.Rows.size());
    if (Key == "Ctrl+Del")
    {
        if (!Row)
            throw EPageUseError(fmt::format("a row of \"{}\" is missing for {}", Grid.Name(), Key));
        Grid.Rows.erase(Grid.Rows.begin() + static_cast<std::ptrdiff_t>(*Row));
        Do(Grid.OnChange);
        return std::nullopt;
    }
    const bool IsDown = Key == "Down" && (!Row || *Row + 1 == Grid.Rows.size());
    if (Key != "Insert" && Key != "Shift+Insert" && Key != "Ctrl+Insert" && !IsDown)
        throw EPageUseError(fmt::format("\"{}\" does not take the key {}", Grid.Name(), Key));
    Grid.Rows.emplace_back(Grid.Columns.size());
    Do(Grid.OnChange);
    return Grid.Rows.size() - 1;
}

std::optional<std::size_t> TPageUser::Press(TControl& Control, const std::string& Key, std::optional<std::size_t> Row)
{
    CheckUsable(Control);
    if (Control.Kind() == TQXControlKind::Grid)
        return PressInGrid(static_cast<TGrid&>(Control), Key, Row);
    if (!Control.OnKey || !Control.OnKey(Key))
        throw EPageUseError(fmt::format("\"{}\" does not take the key {}", Control.Name(), Key));
    FAfterAct();
    return std::nullopt;
}
