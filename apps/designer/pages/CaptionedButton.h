#pragma once

#include <QAbstractButton>
#include <QLabel>

#include <string_view>

/// A box or radio button with its caption. A long caption stands beside it in as many lines as it needs.
class TCaptionedButton
{
public:
    TCaptionedButton(QAbstractButton& Button, std::string_view Caption);
    [[nodiscard]] QWidget& Widget() const { return *FWidget; }
    void SetCaption(std::string_view Caption);

private:
    QAbstractButton& FButton;
    QWidget* FWidget;
    QLabel* FLabel = nullptr; ///< of a long one
};
