// Controls that are clicked or picked from, and labels.
#pragma once

#include "apps/designer/pages/CaptionedButton.h"
#include "apps/designer/pages/ControlView.h"
#include "runtime/forms/PageUser.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

/// A heading, a hint or a note.
class TLabelView final : public TControlView
{
public:
    explicit TLabelView(TLabel& Label);
    QWidget& Widget() override { return *FLabel; }
    void Show() override;

private:
    QLabel* FLabel;
};

class TCheckBoxView final : public TControlView
{
public:
    TCheckBoxView(TCheckBox& Box, TPageUser& User);
    QWidget& Widget() override { return FCaption.Widget(); }
    QWidget& Field() override { return *FBox; }
    void Show() override;

private:
    TCheckBox& FModel;
    QCheckBox* FBox;
    TCaptionedButton FCaption;
};

class TRadioButtonView final : public TControlView
{
public:
    TRadioButtonView(TRadioButton& Button, TPageUser& User);
    QWidget& Widget() override { return FCaption.Widget(); }
    QWidget& Field() override { return *FButton; }
    void Show() override;

private:
    TRadioButton& FModel;
    QRadioButton* FButton;
    TCaptionedButton FCaption;
};

class TButtonView final : public TControlView
{
public:
    TButtonView(TButton& Button, TPageUser& User);
    QWidget& Widget() override { return *FButton; }
    void Show() override;

private:
    QPushButton* FButton;
};

class TComboBoxView final : public TControlView
{
public:
    TComboBoxView(TComboBox& List, TPageUser& User);
    QWidget& Widget() override { return *FBox; }
    void Show() override;

private:
    TComboBox& FModel;
    QComboBox* FBox;
};
