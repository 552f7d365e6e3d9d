// The controls of pages and forms: what they show, without how it is drawn. They are plain values with events for what
// a user does; whoever shows a page looks at its controls again after each event.
#pragma once

#include "host/QXStringList.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class TQXControlKind {
    Label,
    Edit,
    Memo,
    CheckBox,
    RadioButton,
    ComboBox,
    ListBox,
    CheckList,
    Grid,
    ListView,
    Button,
    Panel
};
constexpr auto QXElements(TQXControlKind)
{
    return std::array<std::string_view, 12>{"label",   "edit",      "memo", "checkbox", "radio",  "combobox",
                                            "listbox", "checklist", "grid", "listview", "button", "panel"};
}

using TQXEvent = std::function<void()>;

class TControl;

/// Holds controls: a page, a form, or a panel on one.
class TContainer
{
public:
    TContainer() = default;
    virtual ~TContainer() = default;
    TContainer(const TContainer&) = delete;
    TContainer& operator=(const TContainer&) = delete;

    /// Its own controls, in order of creation, without those on its panels.
    [[nodiscard]] const std::vector<TControl*>& Controls() const { return FControls; }
    /// The panel that this container is, or null.
    [[nodiscard]] virtual const TControl* AsControl() const { return nullptr; }

private:
    friend class TControl;
    std::vector<TControl*> FControls;
};

/// A control of a page, named as its users know it. Name and containers last as long as the page.
class TControl
{
public:
    TControl(TContainer& Parent, TQXControlKind Kind, std::string_view Name, std::string_view ACaption)
        : Caption(ACaption), FParent(Parent), FKind(Kind), FName(Name)
    {
        Parent.FControls.push_back(this);
    }
    virtual ~TControl() = default;
    TControl(const TControl&) = delete;
    TControl& operator=(const TControl&) = delete;

    [[nodiscard]] TQXControlKind Kind() const { return FKind; }
    [[nodiscard]] std::string_view Name() const { return FName; }
    [[nodiscard]] const TContainer& Parent() const { return FParent; }
    /// Whether it and all that it stands on are enabled, or visible.
    [[nodiscard]] bool IsEnabled() const { return IsSet(&TControl::Enabled); }
    [[nodiscard]] bool IsVisible() const { return IsSet(&TControl::Visible); }

    std::string Caption; ///< of an edit, list or grid: its label
    std::string Hint;    ///< one line about it
    bool Enabled = true;
    bool Visible = true;
    TQXEvent OnChange; ///< of what is typed, picked or selected: the user changed it
    TQXEvent OnClick;  ///< of a button, a check box or a radio button
    /// A key pressed in a list; gives whether the key means something there.
    std::function<bool(std::string_view Key)> OnKey;

private:
    [[nodiscard]] bool IsSet(bool TControl::*Flag) const
    {
        const TControl* Holder = FParent.AsControl();
        return this->*Flag && (!Holder || Holder->IsSet(Flag));
    }
    TContainer& FParent;
    TQXControlKind FKind;
    std::string_view FName;
};

/// A heading, a hint or a note.
class TLabel final : public TControl
{
public:
    TLabel(TContainer& Parent, std::string_view Name, std::string_view ACaption)
        : TControl(Parent, TQXControlKind::Label, Name, ACaption)
    {}
};

/// One line of text, with a button that browses for it and one that accepts it where these events are set.
class TEdit final : public TControl
{
public:
    TEdit(TContainer& Parent, std::string_view Name, std::string_view ACaption = {})
        : TControl(Parent, TQXControlKind::Edit, Name, ACaption)
    {}
    /// Puts a text there as its user would: what follows from a change happens.
    void Change(std::string AText)
    {
        Text = std::move(AText);
        if (OnChange)
            OnChange();
    }
    std::string Text;
    bool IsSecret = false; ///< shown as dots
    TQXEvent OnBrowse;
    TQXEvent OnAccept;
};

class TMemo final : public TControl
{
public:
    TMemo(TContainer& Parent, std::string_view Name, std::string_view ACaption = {})
        : TControl(Parent, TQXControlKind::Memo, Name, ACaption)
    {}
    TStringList Lines;
};

class TCheckBox final : public TControl
{
public:
    TCheckBox(TContainer& Parent, std::string_view Name, std::string_view ACaption)
        : TControl(Parent, TQXControlKind::CheckBox, Name, ACaption)
    {}
    bool Checked = false;
};

/// One of the radio buttons of its container excludes the others.
class TRadioButton final : public TControl
{
public:
    TRadioButton(TContainer& Parent, std::string_view Name, std::string_view ACaption)
        : TControl(Parent, TQXControlKind::RadioButton, Name, ACaption)
    {}
    [[nodiscard]] bool IsChecked() const { return FChecked; }
    /// Checks this one and clears the others.
    void Check()
    {
        for (TControl* Control : Parent().Controls())
            if (Control->Kind() == TQXControlKind::RadioButton)
                static_cast<TRadioButton*>(Control)->FChecked = Control == this;
    }

private:
    bool FChecked = false;
};

/// A list from which one entry is picked.
class TComboBox final : public TControl
{
public:
    TComboBox(TContainer& Parent, std::string_view Name, std::string_view ACaption = {},
              std::vector<std::string> AItems = {})
        : TControl(Parent, TQXControlKind::ComboBox, Name, ACaption), Items(std::move(AItems))
    {}
    /// The entry picked, or none; that of an editable one may be typed and match no item.
    [[nodiscard]] std::optional<std::size_t> Selected() const
    {
        const auto Found = std::find(Items.begin(), Items.end(), Text);
        return Found == Items.end() ? std::nullopt : std::optional<std::size_t>(Found - Items.begin());
    }
    /// Picks an item; none for an index behind the last.
    void Select(std::size_t Index) { Text = Index < Items.size() ? Items[Index] : std::string(); }
    /// Picks the item of this text, else none; gives whether there is one.
    bool SelectText(std::string_view AText)
    {
        Text = AText;
        const bool Found = Selected().has_value();
        if (!Found && !IsEditable)
            Text.clear();
        return Found;
    }

    std::vector<std::string> Items; ///< unlike each other and not empty
    std::string Text;               ///< the item picked, or what was typed
    bool IsEditable = false;
};

/// The indices of what is selected or checked in a list, in ascending order.
using TQXIndices = std::vector<std::size_t>;

/// A list of lines, several of which may be selected.
class TListBox final : public TControl
{
public:
    TListBox(TContainer& Parent, std::string_view Name, std::string_view ACaption = {})
        : TControl(Parent, TQXControlKind::ListBox, Name, ACaption)
    {}
    /// Shows these lines. What was selected of others no longer is.
    void Show(std::vector<std::string> Lines)
    {
        if (Lines == Items)
            return;
        Items = std::move(Lines);
        Selected.clear();
    }
    std::vector<std::string> Items;
    TQXIndices Selected;
    bool IsMultiSelect = true;
    TQXEvent OnDoubleClick;
};

class TCheckList final : public TControl
{
public:
    TCheckList(TContainer& Parent, std::string_view Name, std::string_view ACaption, std::vector<std::string> AItems)
        : TControl(Parent, TQXControlKind::CheckList, Name, ACaption), Items(std::move(AItems))
    {}
    std::vector<std::string> Items;
    TQXIndices Checked;
};

/// Rows of texts that can be edited, added and removed.
class TGrid final : public TControl
{
public:
    using TRow = std::vector<std::string>; ///< as many texts as there are columns

    TGrid(TContainer& Parent, std::string_view Name, std::string_view ACaption, std::vector<std::string> AColumns)
        : TControl(Parent, TQXControlKind::Grid, Name, ACaption), Columns(std::move(AColumns))
    {}
    const std::vector<std::string> Columns;
    std::vector<TRow> Rows;
    std::size_t EllipsisColumn = 0; ///< whose cells have a button while OnEllipsis is set
    std::function<void(std::size_t Row)> OnEllipsis;

    /// The rows that lines of the form name=value stand for.
    [[nodiscard]] static std::vector<TRow> RowsOf(const TStringList& Lines)
    {
        std::vector<TRow> Result;
        for (const std::string& Line : Lines)
        {
            const std::size_t Equals = Line.find('=');
            Result.push_back({Line.substr(0, Equals), Equals == std::string::npos ? "" : Line.substr(Equals + 1)});
        }
        return Result;
    }
    /// The lines name=value; a row without any text is none.
    [[nodiscard]] TStringList Lines() const
    {
        TStringList Result;
        for (const TRow& Row : Rows)
            if (!Row[0].empty() || !Row[1].empty())
                Result.Add(Row[0] + "=" + Row[1]);
        return Result;
    }
};

/// Items that are marked with their kind.
class TListView final : public TControl
{
public:
    struct TItem
    {
        std::string Text;
        std::string Kind;
        bool operator==(const TItem&) const = default;
    };

    TListView(TContainer& Parent, std::string_view Name, std::string_view ACaption = {})
        : TControl(Parent, TQXControlKind::ListView, Name, ACaption)
    {}
    /// Shows these items, as a list box its lines.
    void Show(std::vector<TItem> Shown)
    {
        if (Shown == Items)
            return;
        Items = std::move(Shown);
        Selected.clear();
    }
    std::vector<TItem> Items;
    TQXIndices Selected;
    TQXEvent OnDoubleClick;
};

class TButton final : public TControl
{
public:
    TButton(TContainer& Parent, std::string_view Name, std::string_view ACaption)
        : TControl(Parent, TQXControlKind::Button, Name, ACaption)
    {}
};

/// Keeps controls together that are shown, enabled or (radio buttons) picked together.
class TPanel final : public TControl, public TContainer
{
public:
    explicit TPanel(TContainer& AParent, std::string_view AName, std::string_view ACaption = {})
        : TControl(AParent, TQXControlKind::Panel, AName, ACaption)
    {}
    [[nodiscard]] const TControl* AsControl() const override { return this; }
};

/// All controls of a container and of the panels on it, each panel before what stands on it.
[[nodiscard]] inline std::vector<TControl*> QXAllControls(const TContainer& Container)
{
    std::vector<TControl*> Result;
    for (TControl* Control : Container.Controls())
    {
        Result.push_back(Control);
        if (Control->Kind() != TQXControlKind::Panel)
            continue;
        const std::vector<TControl*> Inner = QXAllControls(*static_cast<TPanel*>(Control));
        Result.insert(Result.end(), Inner.begin(), Inner.end());
    }
    return Result;
}
