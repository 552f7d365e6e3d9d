#pragma once

#include "host/QXControls.h"

#include <string_view>

/// The buttons below a list by which its lines are edited. In the list the keys Insert, F2 or Enter, and Del press
/// them.
struct TListButtons
{
    struct TTexts
    {
        std::string_view Add;
        std::string_view Edit;
        std::string_view Delete;
    };
    /// The names are literals.
    TListButtons(TContainer& Page, TControl& List, const TTexts& Captions,
                 const TTexts& Names = {"btnAdd", "btnEdit", "btnDelete"});

    TButton btnAdd;
    TButton btnEdit;
    TButton btnDelete;
};

/// Removes the selected lines of a list box or a list view.
template <typename TList> void DeleteSelected(TList& List)
{
    while (!List.Selected.empty())
    {
        List.Items.erase(List.Items.begin() + static_cast<std::ptrdiff_t>(List.Selected.back()));
        List.Selected.pop_back();
    }
}

/// Adds a line behind the last and selects it.
template <typename TList, typename TItem> void AddSelected(TList& List, TItem Item)
{
    List.Items.push_back(std::move(Item));
    List.Selected = {List.Items.size() - 1};
}
