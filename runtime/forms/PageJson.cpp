#include "runtime/forms/PageJson.h"

#include <fmt/format.h>

namespace
{
template <typename T> const T& As(const TControl& Control)
{
    return static_cast<const T&>(Control);
}
template <typename T> T& As(TControl& Control)
{
    return static_cast<T&>(Control);
}

void AddComboBox(TPageJson& Json, const TComboBox& List)
{
    Json["items"] = List.Items;
    Json["selected"] = List.Selected() ? static_cast<int>(*List.Selected()) : -1;
    Json["text"] = List.Text;
    Json["editable"] = List.IsEditable;
}

void AddListView(TPageJson& Json, const TListView& List)
{
    Json["items"] = TPageJson::array();
    for (const TListView::TItem& Item : List.Items)
        Json["items"].push_back({{"text", Item.Text}, {"kind", Item.Kind}});
    Json["selected"] = List.Selected;
}

void AddEdit(TPageJson& Json, const TEdit& Edit)
{
    Json["text"] = Edit.Text;
    Json["browse"] = static_cast<bool>(Edit.OnBrowse);
    Json["accept"] = static_cast<bool>(Edit.OnAccept);
}

void AddList(TPageJson& Json, const std::vector<std::string>& Items, const char* Name, const TQXIndices& Indices)
{
    Json["items"] = Items;
    Json[Name] = Indices;
}

void AddGrid(TPageJson& Json, const TGrid& Grid)
{
    Json["columns"] = Grid.Columns;
    Json["rows"] = Grid.Rows;
}

/// What a control holds besides what all of them have.
void AddState(TPageJson& Json, const TControl& Control)
{
    switch (Control.Kind())
    {
    case TQXControlKind::Label:
    case TQXControlKind::Button:
    case TQXControlKind::Panel:
        return;
    case TQXControlKind::Edit:
        return AddEdit(Json, As<TEdit>(Control));
    case TQXControlKind::Memo:
        Json["lines"] = As<TMemo>(Control).Lines.Items();
        return;
    case TQXControlKind::CheckBox:
        Json["checked"] = As<TCheckBox>(Control).Checked;
        return;
    case TQXControlKind::RadioButton:
        Json["checked"] = As<TRadioButton>(Control).IsChecked();
        return;
    case TQXControlKind::ComboBox:
        return AddComboBox(Json, As<TComboBox>(Control));
    case TQXControlKind::ListBox:
        return AddList(Json, As<TListBox>(Control).Items, "selected", As<TListBox>(Control).Selected);
    case TQXControlKind::CheckList:
        return AddList(Json, As<TCheckList>(Control).Items, "checked", As<TCheckList>(Control).Checked);
    case TQXControlKind::Grid:
        return AddGrid(Json, As<TGrid>(Control));
    case TQXControlKind::ListView:
        return AddListView(Json, As<TListView>(Control));
    }
}

EPageUseError WrongValue(std::string_view Name, std::string_view Expected)
{
    return EPageUseError(fmt::format("the value of \"{}\" is {}", Name, Expected));
}

std::string Text(const TControl& Control, const TPageJson& Value)
{
    if (!Value.is_string())
        throw WrongValue(Control.Name(), "a text");
    return Value.get<std::string>();
}

bool Flag(const TControl& Control, const TPageJson& Value)
{
    if (!Value.is_boolean())
        throw WrongValue(Control.Name(), "true or false");
    return Value.get<bool>();
}

std::vector<std::string> TextList(const TPageJson& Value, const EPageUseError& Error)
{
    if (!Value.is_array() ||
        !std::all_of(Value.begin(), Value.end(), [](const auto& Item) { return Item.is_string(); }))
        throw EPageUseError(Error);
    return Value.get<std::vector<std::string>>();
}

TQXIndices IndexList(const TControl& Control, const TPageJson& Value)
{
    if (!Value.is_array() ||
        !std::all_of(Value.begin(), Value.end(), [](const auto& Item) { return Item.is_number_unsigned(); }))
        throw WrongValue(Control.Name(), "an array of indices");
    return Value.get<TQXIndices>();
}

std::vector<TGrid::TRow> RowList(const TControl& Control, const TPageJson& Value)
{
    const EPageUseError Error = WrongValue(Control.Name(), "an array of rows, each an array of texts");
    if (!Value.is_array())
        throw EPageUseError(Error);
    std::vector<TGrid::TRow> Rows;
    for (const TPageJson& Row : Value)
        Rows.push_back(TextList(Row, Error));
    return Rows;
}

void PickRadio(TPageUser& User, TRadioButton& Button, const TPageJson& Value)
{
    if (!Flag(Button, Value))
        throw EPageUseError(fmt::format("\"{}\" is cleared by picking another", Button.Name()));
    User.Pick(Button);
}

void PickEntry(TPageUser& User, TComboBox& List, const TPageJson& Value)
{
    if (Value.is_number_unsigned())
        return User.Pick(List, Value.get<std::size_t>());
    if (!Value.is_string())
        throw WrongValue(List.Name(), "an index or a text");
    User.Type(List, Value.get<std::string>());
}

void AddGiven(TPageJson& Json, const char* Name, const std::string& Value)
{
    if (!Value.empty())
        Json[Name] = Value;
}
} // namespace

TPageJson ControlAsJson(const TControl& Control)
{
    TPageJson Json = {{"name", Control.Name()},
                      {"kind", QXElementName(Control.Kind())},
                      {"caption", Control.Caption},
                      {"enabled", Control.IsEnabled()},
                      {"visible", Control.IsVisible()}};
    AddState(Json, Control);
    return Json;
}

void SetControl(TPageUser& User, TControl& Control, const TPageJson& Value)
{
    switch (Control.Kind())
    {
    case TQXControlKind::Label:
    case TQXControlKind::Button:
    case TQXControlKind::Panel:
        throw EPageUseError(fmt::format("\"{}\" holds no value", Control.Name()));
    case TQXControlKind::Edit:
        return User.Type(As<TEdit>(Control), Text(Control, Value));
    case TQXControlKind::Memo:
        return User.Type(As<TMemo>(Control),
                         TStringList(TextList(Value, WrongValue(Control.Name(), "an array of lines"))));
    case TQXControlKind::CheckBox:
        return User.Tick(As<TCheckBox>(Control), Flag(Control, Value));
    case TQXControlKind::RadioButton:
        return PickRadio(User, As<TRadioButton>(Control), Value);
    case TQXControlKind::ComboBox:
        return PickEntry(User, As<TComboBox>(Control), Value);
    case TQXControlKind::ListBox:
        return User.Select(As<TListBox>(Control), IndexList(Control, Value));
    case TQXControlKind::CheckList:
        return User.Check(As<TCheckList>(Control), IndexList(Control, Value));
    case TQXControlKind::Grid:
        return User.Fill(As<TGrid>(Control), RowList(Control, Value));
    case TQXControlKind::ListView:
        return User.Select(As<TListView>(Control), IndexList(Control, Value));
    }
}

TPageJson DialogAsJson(const TQXDialog& Dialog)
{
    const bool IsOfFiles = Dialog.Kind == TQXDialogKind::Open || Dialog.Kind == TQXDialogKind::Save;
    TPageJson Json = {{"kind", QXElementName(Dialog.Kind)}};
    AddGiven(Json, "title", Dialog.Title);
    AddGiven(Json, "prompt", Dialog.Prompt);
    if (IsOfFiles)
        Json["filter"] = Dialog.Filter;
    if (IsOfFiles || Dialog.Kind == TQXDialogKind::Folder)
        Json["file"] = Dialog.File;
    else if (Dialog.Kind != TQXDialogKind::Menu)
        Json["text"] = Dialog.Text;
    AddGiven(Json, "folder", Dialog.Folder);
    if (Dialog.FilterIndex)
        Json["index"] = *Dialog.FilterIndex;
    AddGiven(Json, "extension", Dialog.DefaultExtension);
    if (Dialog.Kind == TQXDialogKind::Menu)
        Json["entries"] = Dialog.Entries;
    if (Dialog.Kind != TQXDialogKind::Paths)
        return Json;
    Json["caption"] = Dialog.Caption;
    Json["mask"] = Dialog.Mask;
    Json["separator"] = Dialog.Separator;
    Json["option"] = Dialog.Option;
    Json["words"] = Dialog.IsWords;
    return Json;
}

TQXAnswer AnswerOf(const TQXDialog& Dialog, const TPageJson& Value)
{
    const std::string_view Kind = QXElementName(Dialog.Kind);
    if (Value.is_null())
        return {};
    if (Value.is_boolean())
    {
        const bool IsYesOrNo = Dialog.Kind == TQXDialogKind::Confirm || Dialog.Kind == TQXDialogKind::Message ||
                               Dialog.Kind == TQXDialogKind::Error;
        if (Value.get<bool>() && !IsYesOrNo)
            throw EPageUseError(fmt::format("true does not answer a dialog of kind \"{}\"", Kind));
        return {.Accepted = Value.get<bool>()};
    }
    TQXAnswer Answer{.Accepted = true};
    if (Value.is_string())
        Answer.Texts = {Value.get<std::string>()};
    else
        Answer.Texts = TextList(Value, EPageUseError("an answer is a text, an array of texts, true, false or null"));
    if (Answer.Texts.size() != 1 && !Dialog.IsMultiSelect)
        throw EPageUseError(fmt::format("a dialog of kind \"{}\" is answered by one text", Kind));
    if (Dialog.Kind == TQXDialogKind::Menu &&
        std::find(Dialog.Entries.begin(), Dialog.Entries.end(), Answer.Texts.front()) == Dialog.Entries.end())
        throw EPageUseError(fmt::format("the menu has no entry \"{}\"", Answer.Texts.front()));
    return Answer;
}

TGivenValue GivenValueOf(const TPageJson& Value)
{
    if (Value.is_boolean())
        return {"a Boolean", Value.get<bool>()};
    if (Value.is_string())
        return {"a string", Value.get<std::string>()};
    if (Value.is_number_unsigned() &&
        Value.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()})
        return {Value.dump()};
    if (Value.is_number_integer())
        return {"a number", Value.get<std::int64_t>()};
    if (!Value.is_array())
        return {Value.is_null() ? "null" : Value.is_object() ? "an object" : Value.dump()};
    TGivenValue::TItems Items;
    for (const TPageJson& Item : Value)
        Items.push_back(GivenValueOf(Item));
    return {"an array", std::move(Items)};
}

TPageJson ValueAsJson(const TQXPropertyValue& Value)
{
    return std::visit([](const auto& Held) { return TPageJson(Held); }, Value);
}
