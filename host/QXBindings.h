// What pages and forms are made of: controls, what they are bound to, and what follows from their state.
#pragma once

#include "host/QXControls.h"
#include "host/QXProperties.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <type_traits>

/// The link between a control and a published property.
struct TQXBinding
{
    TControl* Control;
    /// The member of Object that the control shows; null for what has accessors.
    std::function<const void*(const TQXPersistent& Object)> Member;
    std::function<void(TQXPersistent& Object)> Read;
    std::function<void(TQXPersistent& Object)> Write;
};

/// The controls of a page or a form. Bindings copy properties into controls and back; rules keep controls consistent:
/// they depend on the state of controls alone and may run any number of times.
class TSurface : public TContainer
{
public:
    void ReadBindings(TQXPersistent& Object)
    {
        for (const TQXBinding& Binding : FBindings)
        {
            Describe(Binding, Object);
            Binding.Read(Object);
        }
    }
    void WriteBindings(TQXPersistent& Object) const
    {
        for (const TQXBinding& Binding : FBindings)
            Binding.Write(Object);
    }
    /// Runs the rules; whoever shows the surface calls it after reading and after each event.
    void ApplyRules() const
    {
        for (const TQXEvent& Rule : FRules)
            Rule();
    }
    [[nodiscard]] const std::vector<TQXBinding>& Bindings() const { return FBindings; }

    // Public, since groups of controls that stand on several pages bind themselves.
    template <typename T> void Bind(TEdit& Edit, std::string T::*Member)
    {
        BindMember(
            Edit, Member, [&Edit](const std::string& Value) { Edit.Text = Value; },
            [&Edit](std::string& Value) { Value = Edit.Text; });
    }
    template <typename T> void Bind(TCheckBox& Box, bool T::*Member)
    {
        BindMember(
            Box, Member, [&Box](bool Value) { Box.Checked = Value; }, [&Box](bool& Value) { Value = Box.Checked; });
    }
    /// The lines of the memo.
    template <typename T> void Bind(TMemo& Memo, TStringList T::*Member)
    {
        BindMember(
            Memo, Member, [&Memo](const TStringList& Value) { Memo.Lines = Value; },
            [&Memo](TStringList& Value) { Value = Memo.Lines; });
    }
    /// The whole text of the memo. A text that the memo shows as it was stays so, with its line ends.
    template <typename T> void Bind(TMemo& Memo, std::string T::*Member)
    {
        BindMember(
            Memo, Member, [&Memo](const std::string& Value) { Memo.Lines.SetText(Value); },
            [&Memo](std::string& Value) {
                TStringList Lines;
                Lines.SetText(Value);
                if (Lines == Memo.Lines)
                    return;
                Value = Memo.Lines.Text();
                Value.erase(Value.find_last_not_of("\r\n") + 1);
            });
    }
    /// The entry picked, by its text. Where none is picked, the property stays.
    template <typename T> void Bind(TComboBox& List, std::string T::*Member)
    {
        BindMember(
            List, Member, [&List](const std::string& Value) { List.SelectText(Value); },
            [&List](std::string& Value) {
                if (List.IsEditable || List.Selected())
                    Value = List.Text;
            });
    }
    /// The position of the entry, or Offset more.
    template <typename T, typename TMember>
    requires TQXEnumeration<TMember> || std::is_same_v<TMember, int>
    void Bind(TComboBox& List, TMember T::*Member, int Offset = 0)
    {
        BindMember(
            List, Member,
            [&List, Offset](TMember Value) { List.Select(static_cast<std::size_t>(static_cast<int>(Value) - Offset)); },
            [&List, Offset](TMember& Value) {
                if (const auto Selected = List.Selected())
                    Value = static_cast<TMember>(static_cast<int>(*Selected) + Offset);
            });
    }
    /// The radio buttons of False and True.
    template <typename T> void Bind(TRadioButton& No, TRadioButton& Yes, bool T::*Member)
    {
        BindMember(
            Yes, Member, [&No, &Yes](bool Value) { (Value ? Yes : No).Check(); },
            [&Yes](bool& Value) { Value = Yes.IsChecked(); });
    }
    /// The radio buttons of an enumeration, by position. Where none is checked, the property stays.
    template <typename T, TQXEnumeration TMember> void Bind(std::vector<TRadioButton*> Buttons, TMember T::*Member)
    {
        BindMember(
            *Buttons.front(), Member, [Buttons](TMember Value) { CheckOne(Buttons, static_cast<std::size_t>(Value)); },
            [Buttons](TMember& Value) {
                Value = static_cast<TMember>(Checked(Buttons, static_cast<std::size_t>(Value)));
            });
    }
    // By the name of the property, a literal: for objects that keep their members to themselves. Reading an object
    // without such a property throws std::logic_error.
    void Bind(TEdit& Edit, std::string_view Property)
    {
        BindNamed(
            Edit, Property, [&Edit](const std::string& Value, const TQXProperty&) { Edit.Text = Value; },
            [&Edit](std::string& Value, const TQXProperty&) { Value = Edit.Text; });
    }
    void Bind(std::vector<TRadioButton*> Buttons, std::string_view Property)
    {
        // The value in transit is the name of an element.
        BindNamed(
            *Buttons.front(), Property,
            [Buttons](const std::string& Value, const TQXProperty& Row) { CheckOne(Buttons, Place(Row, Value)); },
            [Buttons](std::string& Value, const TQXProperty& Row) {
                Value = Row.Elements[Checked(Buttons, Place(Row, Value))];
            });
    }
    /// The flag of one of several radio buttons; reading True checks it.
    template <typename T> void Bind(TRadioButton& Button, bool T::*Member)
    {
        BindMember(
            Button, Member,
            [&Button](bool Value) {
                if (Value)
                    Button.Check();
            },
            [&Button](bool& Value) { Value = Button.IsChecked(); });
    }
    /// The lines name=value. A list whose rows are as they were stays as it is.
    template <typename T> void Bind(TGrid& Grid, TStringList T::*Member)
    {
        BindMember(
            Grid, Member, [&Grid](const TStringList& Value) { Grid.Rows = TGrid::RowsOf(Value); },
            [&Grid](TStringList& Value) {
                if (TGrid::RowsOf(Value) != Grid.Rows)
                    Value = Grid.Lines();
            });
    }
    /// The items of a comma text. A text whose items are as they were stays as it is.
    template <typename T> void Bind(TListBox& List, std::string T::*Member)
    {
        BindMember(
            List, Member, [&List](const std::string& Value) { List.Show(Items(Value)); },
            [&List](std::string& Value) {
                if (Items(Value) != List.Items)
                    Value = TStringList(List.Items).CommaText();
            });
    }
    template <typename T> void Bind(TListBox& List, TStringList T::*Member)
    {
        BindMember(
            List, Member, [&List](const TStringList& Value) { List.Show(Value.Items()); },
            [&List](TStringList& Value) { Value = TStringList(List.Items); });
    }
    /// The elements of a set, by position.
    template <typename T, typename TElement> void Bind(TCheckList& List, TQXSet<TElement> T::*Member)
    {
        BindMember(
            List, Member,
            [&List](const TQXSet<TElement>& Value) {
                List.Checked.clear();
                for (std::size_t Index = 0; Index < List.Items.size(); ++Index)
                    if (Value.Contains(static_cast<TElement>(Index)))
                        List.Checked.push_back(Index);
            },
            [&List](TQXSet<TElement>& Value) {
                Value.Clear();
                for (const std::size_t Index : List.Checked)
                    Value.Include(static_cast<TElement>(Index));
            });
    }
    /// A property of T that has no member: Read puts it into the control, Write takes it from there.
    template <typename T>
    void BindAccess(TControl& Control, std::function<void(T&)> Read, std::function<void(T&)> Write)
    {
        FBindings.push_back({&Control, [](const TQXPersistent&) -> const void* { return nullptr; },
                             [Read](TQXPersistent& Object) { Read(static_cast<T&>(Object)); },
                             [Write](TQXPersistent& Object) { Write(static_cast<T&>(Object)); }});
    }

    /// Show puts the value into controls, Take changes it to what they say. A value that did not change is not written;
    /// one that did goes through the property's row. A page may serve several classes: of an object that is no T, the
    /// binding leaves the controls alone.
    template <typename T, typename TMember, typename TShow, typename TTake>
    void BindMember(TControl& Control, TMember T::*Member, TShow Show, TTake Take)
    {
        const auto Address = [Member](const TQXPersistent& Object) -> const void* {
            const T* Typed = dynamic_cast<const T*>(&Object);
            return Typed ? &(Typed->*Member) : nullptr;
        };
        const auto Read = [Member, Show](TQXPersistent& Object) {
            if (const T* Typed = dynamic_cast<const T*>(&Object))
                Show(Typed->*Member);
        };
        const auto Write = [Member, Address, Take](TQXPersistent& Object) {
            const T* Typed = dynamic_cast<const T*>(&Object);
            const TQXProperty* Property = Typed ? Object.FindMember(Address(Object)) : nullptr;
            if (!Property)
                return;
            TMember Value = Typed->*Member;
            Take(Value);
            if (Value != Typed->*Member)
                Property->Write(QXPropertyDetail::TTraits<TMember>::Get(Value));
        };
        FBindings.push_back({&Control, Address, Read, Write});
    }

    void AddRule(TQXEvent Rule) { FRules.push_back(std::move(Rule)); }
    /// The control is enabled exactly while the condition holds.
    void EnableWhile(TControl& Control, std::function<bool()> Condition)
    {
        AddRule([&Control, Condition = std::move(Condition)] { Control.Enabled = Condition(); });
    }
    void EnableWhile(TControl& Control, const TCheckBox& Box)
    {
        EnableWhile(Control, [&Box] { return Box.Checked; });
    }
    void EnableWhile(TControl& Control, const TRadioButton& Button)
    {
        EnableWhile(Control, [&Button] { return Button.IsChecked(); });
    }

private:
    static void CheckOne(const std::vector<TRadioButton*>& Buttons, std::size_t Index)
    {
        if (Index < Buttons.size())
            Buttons[Index]->Check();
    }
    /// The button that is checked, or Default.
    [[nodiscard]] static std::size_t Checked(const std::vector<TRadioButton*>& Buttons, std::size_t Default)
    {
        for (std::size_t Index = 0; Index < Buttons.size(); ++Index)
            if (Buttons[Index]->IsChecked())
                return Index;
        return Default;
    }
    [[nodiscard]] static std::size_t Place(const TQXProperty& Enumeration, std::string_view Element)
    {
        const auto& Elements = Enumeration.Elements;
        return static_cast<std::size_t>(std::find(Elements.begin(), Elements.end(), Element) - Elements.begin());
    }
    [[nodiscard]] static const TQXProperty& RowOf(const TQXPersistent& Object, std::string_view Name)
    {
        if (const TQXProperty* Property = Object.FindProperty(Name))
            return *Property;
        throw std::logic_error("a page binds a property that does not exist: " + std::string(Name));
    }
    /// A property whose value in transit is a text.
    template <typename TShow, typename TTake>
    void BindNamed(TControl& Control, std::string_view Name, TShow Show, TTake Take)
    {
        const auto Read = [Name, Show](TQXPersistent& Object) {
            const TQXProperty& Row = RowOf(Object, Name);
            Show(std::get<std::string>(Row.Read()), Row);
        };
        const auto Write = [Name, Take](TQXPersistent& Object) {
            const TQXProperty& Row = RowOf(Object, Name);
            std::string Value = std::get<std::string>(Row.Read());
            Take(Value, Row);
            if (TQXPropertyValue(Value) != Row.Read())
                Row.Write(Value);
        };
        FBindings.push_back(
            {&Control, [Name](const TQXPersistent& Object) { return RowOf(Object, Name).Member; }, Read, Write});
    }
    [[nodiscard]] static std::vector<std::string> Items(const std::string& CommaText)
    {
        TStringList List;
        List.SetCommaText(CommaText);
        return List.Items();
    }
    /// What the property's row says of it besides.
    static void Describe(const TQXBinding& Binding, const TQXPersistent& Object)
    {
        const void* Member = Binding.Member(Object);
        const TQXProperty* Property = Member ? Object.FindMember(Member) : nullptr;
        if (!Property)
            return;
        if (Binding.Control->Hint.empty())
            Binding.Control->Hint = Property->Meaning;
        if (Binding.Control->Kind() == TQXControlKind::Edit)
            static_cast<TEdit*>(Binding.Control)->IsSecret = Property->IsSecret;
    }

    std::vector<TQXBinding> FBindings;
    std::vector<TQXEvent> FRules;
};
