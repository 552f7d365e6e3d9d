#include "apps/designer/editors/ProjectPane.h"

#include "apps/designer/QtText.h"
#include "apps/designer/RoomyRows.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/designer/scripts/Scripts.h"
#include "platform/Paths.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace
{
/// The Tab key goes from a name to its value, and on to the next variable.
class TVariablesView final : public QTreeView
{
protected:
    QModelIndex moveCursor(CursorAction Action, Qt::KeyboardModifiers Modifiers) override
    {
        if (Action != MoveNext && Action != MovePrevious)
            return QTreeView::moveCursor(Action, Modifiers);
        constexpr int Cells = 2; // of a row that are edited
        const int Cell = currentIndex().row() * Cells + currentIndex().column() + (Action == MoveNext ? 1 : -1);
        return model()->index(Cell / Cells, Cell % Cells);
    }
};
} // namespace

TProjectPane::TProjectPane(TProjectDocument& Document)
    : FDocument(Document), FVariables(Document), FName(new QLineEdit),
      FFollowsIDE(new QCheckBox(tr("Foll&ow the IDE where an action's own way differs"))),
      FIncludes(new TListEditor(tr("Included files"))), FTable(new TVariablesView), FScripts(new TScriptPane)
{
    setDocumentMode(true);
    addTab(MakeVariables(), tr("Variables"));
    addTab(MakeGeneral(), tr("Project"));
    addTab(FScripts, tr("Scripts"));
    FScripts->Check = Scripts::Check;
    connect(FScripts, &TScriptPane::Edited, this, &TProjectPane::TakeScript);
    connect(&FVariables, &TVariablesModel::Refused, this, &TProjectPane::Refused);
    connect(&Document, &TProjectDocument::Replaced, this, &TProjectPane::ShowProject);
    ShowProject();
}

QWidget* TProjectPane::MakeGeneral()
{
    auto* Page = new QWidget;
    auto* Form = new QFormLayout(Page);
    Form->addRow(tr("&Name"), FName);
    Form->addRow(QString(), FFollowsIDE);
    Form->addRow(tr("&Includes"), FIncludes);
    connect(FFollowsIDE, &QCheckBox::clicked, this, [this](bool Follows) {
        Change(tr("Follow the IDE"), [=](TProject& Project) { Project.FollowsIDE = Follows; });
    });
    FIncludes->setToolTip(tr("Their variables, scripts and actions come before the project's own"));
    FIncludes->AskForNew = [this] { return AskForInclude(); };
    connect(FName, &QLineEdit::editingFinished, this, [this] {
        Change(tr("Rename Project"), [this](TProject& Project) { Project.Name = FromQt(FName->text()); });
    });
    connect(FIncludes, &TListEditor::Changed, this, [this] {
        Change(tr("Includes"), [this](TProject& Project) {
            Project.Includes.clear();
            for (const QString& Item : FIncludes->Items())
                Project.Includes.push_back(FromQt(Item));
        });
    });
    return Page;
}

QWidget* TProjectPane::MakeVariables()
{
    FTable->setModel(&FVariables);
    FTable->setRootIsDecorated(false);
    FTable->setItemDelegate(new TRoomyRows(this));
    FTable->setAllColumnsShowFocus(true);
    FTable->setObjectName(QStringLiteral("variables"));
    FTable->setAccessibleName(tr("Variables"));
    FTable->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked |
                            QAbstractItemView::AnyKeyPressed);
    FTable->header()->setStretchLastSection(false);
    FTable->header()->setSectionResizeMode(TVariablesModel::ValueColumn, QHeaderView::Stretch);
    constexpr int NameWidth = 180;
    FTable->header()->resizeSection(TVariablesModel::NameColumn, NameWidth);

    const auto Add = [this] {
        const int Row = FVariables.Add();
        FTable->setCurrentIndex(FVariables.index(Row, TVariablesModel::NameColumn));
        FTable->edit(FTable->currentIndex());
    };
    const auto Remove = [this] {
        const int Row = FTable->currentIndex().row();
        FVariables.Remove(Row);
        FTable->setCurrentIndex(FVariables.index(std::min(Row, FVariables.rowCount({}) - 1), 0));
    };
    auto* AddButton = new QPushButton(tr("A&dd"));
    auto* RemoveButton = new QPushButton(tr("Re&move"));
    AddButton->setToolTip(tr("Insert"));
    RemoveButton->setToolTip(tr("Delete"));
    connect(AddButton, &QPushButton::clicked, this, Add);
    connect(RemoveButton, &QPushButton::clicked, this, Remove);
    const auto AddKey = [&](int Key, const auto& Do) {
        auto* Shortcut = new QShortcut(QKeySequence(Key), FTable);
        Shortcut->setContext(Qt::WidgetShortcut);
        connect(Shortcut, &QShortcut::activated, this, Do);
    };
    AddKey(Qt::Key_Insert, Add);
    AddKey(Qt::Key_Delete, Remove);

    auto* Page = new QWidget;
    auto* Buttons = new QHBoxLayout;
    Buttons->addWidget(AddButton);
    Buttons->addWidget(RemoveButton);
    Buttons->addStretch();
    auto* Layout = new QVBoxLayout(Page);
    Layout->addWidget(FTable);
    Layout->addLayout(Buttons);
    return Page;
}

void TProjectPane::ShowProject()
{
    const TProject& Project = FDocument.Project();
    FName->setText(ToQt(Project.Name));
    FFollowsIDE->setChecked(Project.FollowsIDE);
    QStringList Includes;
    for (const std::string& Include : Project.Includes)
        Includes.append(ToQt(Include));
    FIncludes->Show(Includes);
    FScripts->Show(Scripts::OfProject(Project));
}

void TProjectPane::Change(const QString& Name, const std::function<void(TProject&)>& Edit)
{
    const QString Reason = FDocument.Change(Name, [&](TProject& Project) {
        Edit(Project);
        return TPlaces();
    });
    if (!Reason.isEmpty())
        emit Refused(Reason);
}

void TProjectPane::TakeScript(const QString& Name, const QString& Text)
{
    FDocument.TouchProject(tr("Edit Script"), Name, [&](TProject& Project) {
        const auto IsIt = [&](const auto& Pair) { return Pair.first == FromQt(Name); };
        const auto Known = std::find_if(Project.Scripts.begin(), Project.Scripts.end(), IsIt);
        if (Text.isEmpty())
            std::erase_if(Project.Scripts, IsIt);
        else if (Known != Project.Scripts.end())
            Known->second = FromQt(Text);
        else
            Project.Scripts.emplace_back(FromQt(Name), FromQt(Text));
    });
}

/// A file near the project is named from the project's folder.
QString TProjectPane::AskForInclude()
{
    std::string File = Paths::Join(FDocument.Project().Folder, "");
    if (!FileDialogs::AskForFile(this, {tr("Include"), tr("Project Files (*.toml)|*.toml|All Files (*)|*")}, File))
        return {};
    return ToQt(Paths::RelativeTo(File, FDocument.Project().Folder));
}
