#include "apps/designer/document/FileCommands.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/import/Import.h"
#include "platform/Files.h"
#include "platform/Modules.h"
#include "platform/Paths.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QSettings>

namespace
{
const QString RecentKey = QStringLiteral("recent");
constexpr int RecentCount = 10;

TFileQuestion Question(const QString& Title, bool IsSaving)
{
    return {.Title = Title,
            .Filter = TFileCommands::tr("Project Files (*.toml)|*.toml|All Files (*)|*"),
            .Extension = QStringLiteral("toml"),
            .IsSaving = IsSaving,
            .MustExist = !IsSaving};
}
} // namespace

TFileCommands::TFileCommands(QWidget& Window, TProjectDocument& Document, TMessageBar& Bar)
    : FWindow(Window), FDocument(Document), FBar(Bar)
{
    connect(&FWatch, &TFileWatch::Changed, this, &TFileCommands::LookAtDisk);
    connect(&FDocument, &TProjectDocument::Replaced, this, &TFileCommands::WatchFiles);
}

/// Does something with files and shows why it failed.
template <typename TDo> bool TFileCommands::Try(TDo Do)
try
{
    Do();
    return true;
}
catch (const std::exception& Error) // EHostFileError and EFileError, which name file and reason
{
    QMessageBox::critical(&FWindow, QApplication::applicationDisplayName(), ToQt(Error.what()));
    return false;
}

bool TFileCommands::MayLeave()
{
    emit Leaving();
    if (!FDocument.IsModified())
        return true;
    const auto Answer = QMessageBox::question(
        &FWindow, QApplication::applicationDisplayName(),
        tr("The project \"%1\" has changes that are not saved.").arg(ToQt(FDocument.Project().Name)),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return Answer == QMessageBox::Discard || (Answer == QMessageBox::Save && Save());
}

void TFileCommands::StartNew()
{
    if (!MayLeave())
        return;
    FDocument.StartNew();
    emit Opened();
}

void TFileCommands::AskOpen()
{
    std::string File = FDocument.HasFile() ? FDocument.File() : std::string();
    if (FileDialogs::AskForFile(&FWindow, Question(tr("Open Project"), false), File))
        Open(ToQt(File));
}

bool TFileCommands::Open(const QString& File)
{
    if (!MayLeave() || !Try([&] { FDocument.Open(FromQt(File)); }))
        return false;
    FBar.hide();
    Remember();
    emit Opened();
    return true;
}

bool TFileCommands::Save()
{
    if (!FDocument.HasFile())
        return SaveAs();
    if (FDocument.IsOtherOnDisk() &&
        QMessageBox::question(&FWindow, QApplication::applicationDisplayName(),
                              tr("Another program has changed \"%1\". Save over it?").arg(ToQt(FDocument.File()))) !=
            QMessageBox::Yes)
        return false;
    if (!Try([&] { FDocument.Save(); }))
        return false;
    FBar.hide();
    emit Told(tr("Saved"));
    return true;
}

bool TFileCommands::SaveAs()
{
    std::string File = FDocument.Project().File;
    if (!FileDialogs::AskForFile(&FWindow, Question(tr("Save Project As"), true), File) ||
        !Try([&] { FDocument.SaveAs(File); }))
        return false;
    Remember();
    emit Told(tr("Saved as %1").arg(ToQt(FDocument.File())));
    return true;
}

void TFileCommands::ImportSolution()
{
    std::string File;
    const TFileQuestion Solution{
        .Title = tr("Import Solution"), .Filter = tr("Solutions (*.sln)|*.sln|All Files (*)|*"), .MustExist = true};
    if (FileDialogs::AskForFile(&FWindow, Solution, File))
        Import(File);
}

void TFileCommands::ImportFolder()
{
    std::string Folder;
    if (FileDialogs::AskForFolder(&FWindow, tr("Import Folder"), Folder))
        Import(Folder);
}

/// The file may be there already: whoever saves the project is asked then.
void TFileCommands::Import(const std::string& Source)
{
    TImportResult Result;
    const bool IsRead = MayLeave() && Try([&] {
                            const TModule Module(TModule::FileBesideProgram("quexley_import"));
                            Module.Function<void(const TImportWishes&, TImportResult&)>("QXImportProjects")(
                                {.Source = Source, .Configuration = {}, .Output = {}, .Replaces = true}, Result);
                            FDocument.Begin(Result.File, Result.Text);
                        });
    if (!IsRead)
        return;
    FBar.hide();
    emit Opened();
    emit Told(tr("Projects imported: %1; not yet saved").arg(Result.Actions.size()));
    QStringList Notes;
    for (const TImportedAction& Action : Result.Actions)
        for (const std::string& Note : Action.Notes)
            Notes.append(QStringLiteral("%1: %2").arg(ToQt(Action.Name), ToQt(Note)));
    for (const std::string& Note : Result.Notes)
        Notes.append(ToQt(Note));
    emit Noted(Notes);
}

QStringList TFileCommands::Recent()
{
    return QSettings().value(RecentKey).toStringList();
}

void TFileCommands::Remember()
{
    QStringList Files = Recent();
    Files.removeAll(ToQt(FDocument.File()));
    Files.prepend(ToQt(FDocument.File()));
    QSettings().setValue(RecentKey, Files.mid(0, RecentCount));
}

void TFileCommands::ShowRecent(QMenu& Menu)
{
    connect(&Menu, &QMenu::aboutToShow, this, [this, &Menu] {
        Menu.clear();
        int Number = 0;
        for (const QString& File : Recent())
        {
            QAction* Action = Menu.addAction(QStringLiteral("&%1  %2").arg(++Number % RecentCount).arg(File));
            connect(Action, &QAction::triggered, this, [this, File] { Open(File); });
        }
        if (Number == 0)
            Menu.addAction(tr("None yet"))->setEnabled(false);
    });
}

void TFileCommands::WatchFiles()
{
    FIncluded = IncludedContent();
    FWatch.SetFiles(FDocument.HasFile() ? IncludedFiles() << ToQt(FDocument.File()) : QStringList());
}

QStringList TFileCommands::IncludedFiles() const
{
    QStringList Files;
    for (const std::string& File : FDocument.Project().FileNames())
        if (File != FDocument.Project().File)
            Files.append(ToQt(File));
    return Files;
}

QByteArray TFileCommands::IncludedContent() const
{
    QByteArray Content;
    for (const QString& Name : IncludedFiles())
        if (QFile File(Name); File.open(QIODevice::ReadOnly))
            Content += File.readAll();
    return Content;
}

void TFileCommands::LookAtDisk()
{
    // A dialog may belong to a page, which would go.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget())
        return FWatch.LookAgain();
    if (IncludedContent() != FIncluded)
        FDocument.Refresh();
    if (!FDocument.IsOtherOnDisk())
        return;
    FBar.Ask(
        tr("Another program has changed \"%1\".").arg(ToQt(Paths::FileName(FDocument.File()))), tr("Re&load"),
        [this] { TakeFromDisk(); }, tr("&Keep Mine"), [this] { FDocument.KeepMine(); });
}

void TFileCommands::TakeFromDisk()
{
    if (Try([&] { FDocument.TakeFromDisk(); }))
        emit Told(tr("Reloaded; what was there before can be had back by Undo"));
}
