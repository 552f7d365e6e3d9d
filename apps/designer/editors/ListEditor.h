#pragma once

#include <QListWidget>
#include <QPushButton>
#include <QStringList>
#include <QWidget>

#include <functional>

/// A list of texts that can be added, changed in place, removed and put into another order.
class TListEditor final : public QWidget
{
    Q_OBJECT

public:
    explicit TListEditor(const QString& Name);
    void Show(const QStringList& Items);
    [[nodiscard]] QStringList Items() const;
    /// Gives the text of a new entry, or an empty one for none.
    std::function<QString()> AskForNew;

signals:
    void Changed();

private:
    void Add();
    void Remove();
    void MoveBy(int Rows);

    QListWidget* FList;
};
