#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include <functional>

/// A line above the pages that tells something and waits for an answer without standing in the way.
class TMessageBar final : public QFrame
{
    Q_OBJECT

public:
    TMessageBar();

    /// Shows a text; with captions there are buttons that do something and close the bar.
    void Show(const QString& Text);
    void Ask(const QString& Text, const QString& Yes, std::function<void()> OnYes, const QString& No,
             std::function<void()> OnNo);
    [[nodiscard]] QString Text() const { return FText->text(); }
    [[nodiscard]] QPushButton& Yes() { return *FYes; }

private:
    QLabel* FText;
    QPushButton* FYes;
    QPushButton* FNo;
    std::function<void()> FOnYes;
    std::function<void()> FOnNo;
};
