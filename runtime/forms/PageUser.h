// What users do on pages and forms, however they are shown.
#pragma once

#include "host/QXControls.h"

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// What was asked for cannot be done with the control; the message names it. Nothing has changed.
class EPageUseError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Does with controls what their user does: changes them and runs their events. Each operation throws EPageUseError
/// for a control that is disabled or not visible, or a value that it cannot take.
class TPageUser
{
public:
    /// AfterAct runs behind each act: it brings the controls in line with each other.
    explicit TPageUser(std::function<void()> AfterAct) : FAfterAct(std::move(AfterAct)) {}

    void Type(TEdit& Edit, std::string Text);
    /// A line that holds line ends becomes several.
    void Type(TMemo& Memo, const TStringList& Lines);
    /// In an editable list any text, else that of an item.
    void Type(TComboBox& List, const std::string& Text);
    void Tick(TCheckBox& Box, bool Checked);
    void Pick(TRadioButton& Button);
    void Pick(TComboBox& List, std::size_t Index);
    void Select(TListBox& List, TQXIndices Selected);
    void Select(TListView& List, TQXIndices Selected);
    void Check(TCheckList& List, TQXIndices Checked);
    void Fill(TGrid& Grid, std::vector<TGrid::TRow> Rows);

    /// A button, a check box (its state turns) or a radio button.
    void Click(TControl& Control);
    void DoubleClick(TControl& Control);
    void Browse(TEdit& Edit);
    void Accept(TEdit& Edit);
    /// The button in a cell of a grid.
    void Ellipsis(TGrid& Grid, std::size_t Row, std::size_t Column);
    /// A key in a grid or a list, at a row. Grids add a row behind the last by Insert, Shift+Insert, Ctrl+Insert and,
    /// in their last row, Down; Ctrl+Del removes the row. Gives the row that is to be edited then, if it is a new one.
    std::optional<std::size_t> Press(TControl& Control, const std::string& Key, std::optional<std::size_t> Row);

private:
    void Do(const TQXEvent& Event) const;
    std::optional<std::size_t> PressInGrid(TGrid& Grid, const std::string& Key, std::optional<std::size_t> Row);

    std::function<void()> FAfterAct;
};
