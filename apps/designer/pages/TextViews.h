// Controls into which text is typed.
#pragma once

#include "apps/designer/pages/ControlView.h"
#include "runtime/forms/PageUser.h"

#include <QLineEdit>
#include <QPlainTextEdit>

#include <string>

/// How a path that was chosen is written: the edited project may know a shorter way.
using TShorten = std::function<std::string(const std::string& Path)>;

class TEditView final : public TControlView
{
public:
    TEditView(TEdit& Edit, TPageUser& User, const TShorten& Shorten);
    QWidget& Widget() override { return *FWidget; }
    QWidget& Field() override { return *FEdit; }
    void Show() override;

private:
    void AddButton(const QString& Caption, const QString& Name, const QString& Key, std::function<void()> Do);
    void Browse(TPageUser& User, const TShorten& Shorten);

    TEdit& FModel;
    QWidget* FWidget;
    QLineEdit* FEdit;
};

class TMemoView final : public TControlView
{
public:
    TMemoView(TMemo& Memo, TPageUser& User);
    QWidget& Widget() override { return *FEdit; }
    void Show() override;

private:
    TMemo& FModel;
    QPlainTextEdit* FEdit;
};
