#include "package/pages/QXDemeanorExcludeFrame.h"

#include "host/QXForms.h"
#include "package/analysis/QXDemeanorAction.h"

#include <algorithm>

namespace
{
constexpr const char* Standard = "Standard";
constexpr const char* RegularExpression = "Regular expression";

/// How an item is added.
struct TEntry
{
    const char* Caption;
    const char* Start;
    const char* Kind;
};
constexpr TEntry Entries[] = {
    {"Standard...", "[Name of type or member]", Standard},
    {"Regular Expression...", "[Regular expression for type or member]", RegularExpression},
};
} // namespace

TDemeanorExcludeFrame::TDemeanorExcludeFrame()
{
    lvExcludes.Hint = "Types and members left alone, by name or by a regular expression";
    BindMember(
        lvExcludes, &TQXDemeanorAction::Exclude, [this](const TStringList& Lines) { ShowItems(Standard, Lines); },
        [this](TStringList& Lines) { Lines = ItemsOf(Standard); });
    BindMember(
        lvExcludes, &TQXDemeanorAction::RegularExpressions,
        [this](const TStringList& Lines) { ShowItems(RegularExpression, Lines); },
        [this](TStringList& Lines) { Lines = ItemsOf(RegularExpression); });
    Buttons.btnAdd.OnClick = [this] { AddItem(); };
    Buttons.btnEdit.OnClick = [this] { EditItem(); };
    Buttons.btnDelete.OnClick = [this] { DeleteSelected(lvExcludes); };
}

/// In place of all items of the kind.
void TDemeanorExcludeFrame::ShowItems(const char* Kind, const TStringList& Lines)
{
    if (ItemsOf(Kind) == Lines)
        return;
    std::vector<TListView::TItem> Items = lvExcludes.Items;
    std::erase_if(Items, [Kind](const TListView::TItem& Item) { return Item.Kind == Kind; });
    for (const std::string& Line : Lines)
        Items.push_back({Line, Kind});
    lvExcludes.Show(std::move(Items));
}

TStringList TDemeanorExcludeFrame::ItemsOf(const char* Kind) const
{
    TStringList Lines;
    for (const TListView::TItem& Item : lvExcludes.Items)
        if (Item.Kind == Kind)
            Lines.Add(Item.Text);
    return Lines;
}

/// Asks for a text that no item has yet; true if one was given.
bool TDemeanorExcludeFrame::AskItem(std::string& Text) const
{
    if (!QXInputQuery("Exclude", "Type or member:", Text) || Text.empty())
        return false;
    const auto& Items = lvExcludes.Items;
    const auto IsSame = [&Text](const TListView::TItem& Item) { return Item.Text == Text; };
    if (std::none_of(Items.begin(), Items.end(), IsSame))
        return true;
    QXShowMessage("\"" + Text + "\" is already in list");
    return false;
}

void TDemeanorExcludeFrame::AddItem()
{
    std::vector<std::string> Captions;
    for (const TEntry& Entry : Entries)
        Captions.emplace_back(Entry.Caption);
    const auto Picked = QXPopupMenu(std::move(Captions));
    for (const TEntry& Entry : Entries)
        if (std::string Text = Entry.Start; Picked == Entry.Caption && AskItem(Text))
            AddSelected(lvExcludes, TListView::TItem{std::move(Text), Entry.Kind});
}

void TDemeanorExcludeFrame::EditItem()
{
    if (lvExcludes.Selected.empty())
        return;
    std::string& Caption = lvExcludes.Items[lvExcludes.Selected.front()].Text;
    if (std::string Text = Caption; AskItem(Text))
        Caption = std::move(Text);
}
