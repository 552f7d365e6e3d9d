#pragma once

#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

#include <functional>

/// A line of text with a button behind it that offers another way to fill it in.
class TTextField final : public QWidget
{
    Q_OBJECT

public:
    /// Ask gets the text and gives the new one.
    TTextField(QWidget* Parent, std::function<QString(const QString&)> Ask);
    [[nodiscard]] QString Text() const { return FText; }
    void SetText(const QString& Text);
    [[nodiscard]] QLineEdit& Edit() { return *FEdit; }

signals:
    /// The button's way was taken to the end.
    void Answered();

private:
    void AskForText();

    QLineEdit* FEdit;
    QToolButton* FButton;
    QString FText; ///< may have lines, of which the edit shows none
    std::function<QString(const QString&)> FAsk;
};
