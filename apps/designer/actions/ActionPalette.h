#pragma once

#include <QLineEdit>
#include <QTreeWidget>
#include <QWidget>

/// How a dragged action of the palette is known: its class name.
inline constexpr const char* ClassMimeType = "application/x-quexley-class";

/// The tree of the registered actions by category, from which they can be dragged.
class TPaletteTree final : public QTreeWidget
{
    Q_OBJECT

public:
    explicit TPaletteTree(QWidget* Parent);

signals:
    /// Enter, or a double click, on an action.
    void Chosen(const QString& ClassName);

protected:
    QMimeData* mimeData(const QList<QTreeWidgetItem*>& Items) const override;
    QStringList mimeTypes() const override;
    void keyPressEvent(QKeyEvent* Event) override;
};

/// The registered actions, with a field that narrows them down.
class TActionPalette final : public QWidget
{
    Q_OBJECT

public:
    TActionPalette();
    /// Takes all actions that are registered now.
    void Fill();
    /// Moves the focus to the field.
    void BeginSearch();

    QLineEdit& Search() { return *FSearch; }
    TPaletteTree& Tree() { return *FTree; }

signals:
    void Chosen(const QString& ClassName);
    /// The class of the current action, empty for a category.
    void Pointed(const QString& ClassName);

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    void Narrow(const QString& Words);
    [[nodiscard]] QTreeWidgetItem* FirstShown() const;
    [[nodiscard]] QTreeWidgetItem* Category(const QString& Name);

    QLineEdit* FSearch;
    TPaletteTree* FTree;
};
