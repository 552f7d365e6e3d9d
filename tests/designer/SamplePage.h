// A page with a control of every kind, for an action with a property of every kind.
#pragma once

#include "host/QXPages.h"

enum TSampleKind { skOne, skTwo };
constexpr auto QXElements(TSampleKind)
{
    return std::array<std::string_view, 2>{"skOne", "skTwo"};
}

class TSamplePageAction final : public TQXAction
{
public:
    TSamplePageAction()
    {
        Publish("Text", Text, "A text").File();
        Publish("Secret", Secret, "A secret").Secret();
        Publish("Flag", Flag, "A flag");
        Publish("Number", Number, "A number");
        Publish("Kind", Kind, "A kind");
        Publish("Kinds", Kinds, "Kinds");
        Publish("Lines", Lines, "Lines");
        Publish("List", List, "A list").List(';');
        Publish("Pairs", Pairs, "Pairs");
    }
    [[nodiscard]] bool Execute() override { return true; }

    std::string Text;
    std::string Secret;
    bool Flag = false;
    int Number = 0;
    TSampleKind Kind = skOne;
    TQXSet<TSampleKind> Kinds;
    TStringList Lines;
    std::string List;
    TStringList Pairs;
};

class TSamplePage final : public TFrame, public IQXPageValidation
{
public:
    TSamplePage()
    {
        using T = TSamplePageAction;
        Bind(txtText, &T::Text);
        Bind(txtSecret, &T::Secret);
        Bind(chkFlag, &T::Flag);
        Bind(cbKind, &T::Kind);
        Bind(memLines, &T::Lines);
        Bind(lstList, &T::List);
        Bind(chlKinds, &T::Kinds);
        Bind(grdPairs, &T::Pairs);
        EnableWhile(txtText, chkFlag);
        txtText.OnBrowse = [this] { txtText.Change("/browsed"); };
        txtText.OnAccept = [this] { lstList.Items.push_back(txtText.Text); };
        grdPairs.OnEllipsis = [this](std::size_t Row) { grdPairs.Rows[Row][1] += "!"; };
        btnHide.OnClick = [this] { pnlRadios.Visible = !pnlRadios.Visible; };
        lstList.OnKey = [this](std::string_view Key) {
            if (Key == "Del")
                lstList.Items.clear();
            return Key == "Del";
        };
    }
    [[nodiscard]] std::string PageName() const override { return "Sample && more"; }
    [[nodiscard]] bool Validate() override { return !txtText.Text.empty(); }

    TLabel lblNote{*this, "lblNote", "A note"};
    TCheckBox chkFlag{*this, "chkFlag", "Flag"};
    TEdit txtText{*this, "txtText"};
    TEdit txtSecret{*this, "txtSecret", "Secret"};
    TComboBox cbKind{*this, "cbKind", "Kind", {"One", "Two"}};
    TMemo memLines{*this, "memLines", "Lines"};
    TListBox lstList{*this, "lstList", "List"};
    TCheckList chlKinds{*this, "chlKinds", "Kinds", {"One", "Two"}};
    TGrid grdPairs{*this, "grdPairs", "Pairs", {"Name", "Value"}};
    TListView lsvAll{*this, "lsvAll", "All"};
    TPanel pnlRadios{*this, "pnlRadios", "Radios"};
    TRadioButton rbFirst{pnlRadios, "rbFirst", "First"};
    TRadioButton rbSecond{pnlRadios, "rbSecond", "Second"};
    TEdit txtSecond{pnlRadios, "txtSecond"};
    TButton btnHide{*this, "btnHide", "Hide"};
    TButton btnOther{*this, "btnOther", "Other"};
};
