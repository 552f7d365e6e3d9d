#include "apps/designer/dialogs/PathsDialog.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/designer/dialogs/OkAndCancel.h"
#include "apps/designer/editors/ListEditor.h"

#include <QDialog>
#include <QInputDialog>
#include <QLabel>
#include <QVBoxLayout>

namespace
{
constexpr int FoldersOnly = 1; // the option of EditPathEx

QString AskForEntry(QWidget* Parent, const TQXDialog& Dialog)
{
    const QString Title = ToQt(Dialog.Caption);
    std::string Path;
    if (Dialog.IsWords)
        return QInputDialog::getText(Parent, Title, Title + QLatin1Char(':'));
    if (Dialog.Option == FoldersOnly)
        return FileDialogs::AskForFolder(Parent, Title, Path) ? ToQt(Path) : QString();
    const QString Mask = ToQt(Dialog.Mask);
    const TFileQuestion Question{.Title = Title, .Filter = Mask.isEmpty() ? Mask : Mask + QLatin1Char('|') + Mask};
    return FileDialogs::AskForFile(Parent, Question, Path) ? ToQt(Path) : QString();
}
} // namespace

TQXAnswer AskForPaths(QWidget* Parent, const TQXDialog& Dialog)
{
    QDialog Window(Parent);
    Window.setWindowTitle(ToQt(Dialog.Title));
    const QString Separator = ToQt(Dialog.Separator);
    auto* List = new TListEditor(ToQt(Dialog.Caption));
    List->Show(ToQt(Dialog.Text).split(Separator, Qt::SkipEmptyParts));
    List->AskForNew = [&] { return AskForEntry(&Window, Dialog); };
    auto* Label = new QLabel(ToQt(Dialog.Caption));
    Label->setBuddy(List);
    auto* Layout = new QVBoxLayout(&Window);
    Layout->addWidget(Label);
    Layout->addWidget(List);
    Layout->addWidget(OkAndCancel(Window));
    constexpr QSize Size(520, 320);
    Window.resize(Size);
    if (Window.exec() != QDialog::Accepted)
        return {};
    return {true, {FromQt(List->Items().join(Separator))}};
}
