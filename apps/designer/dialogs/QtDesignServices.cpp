#include "apps/designer/dialogs/QtDesignServices.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/designer/dialogs/FormDialog.h"
#include "apps/designer/dialogs/PathsDialog.h"
#include "apps/designer/editors/TextDialog.h"
#include "platform/Paths.h"

#include <QApplication>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>

namespace
{
QWidget* ParentOfDialogs()
{
    QWidget* Modal = QApplication::activeModalWidget();
    return Modal ? Modal : QApplication::activeWindow();
}

TQXAnswer Accepted(const QString& Text)
{
    return {true, {FromQt(Text)}};
}

TQXAnswer AskForFiles(const TQXDialog& Dialog)
{
    TFileQuestion Question{.Title = ToQt(Dialog.Title),
                           .Filter = ToQt(Dialog.Filter),
                           .Extension = ToQt(Dialog.DefaultExtension),
                           .FilterPlace = static_cast<int>(Dialog.FilterIndex.value_or(0)),
                           .IsSaving = Dialog.Kind == TQXDialogKind::Save,
                           .MustExist = Dialog.MustExist,
                           .IsMultiSelect = Dialog.IsMultiSelect};
    const std::string Begin =
        Dialog.File.empty() && !Dialog.Folder.empty() ? Paths::WithTrailing(Dialog.Folder) : Dialog.File;
    TQXAnswer Answer;
    Answer.Texts = FileDialogs::AskForFiles(ParentOfDialogs(), Question, Begin);
    Answer.Accepted = !Answer.Texts.empty();
    return Answer;
}

TQXAnswer AskForFolder(const TQXDialog& Dialog)
{
    std::string Folder = Dialog.File.empty() ? Dialog.Folder : Dialog.File;
    const bool IsChosen = FileDialogs::AskForFolder(ParentOfDialogs(),
                                                    ToQt(Dialog.Prompt.empty() ? Dialog.Title : Dialog.Prompt), Folder);
    return IsChosen ? TQXAnswer{true, {Folder}} : TQXAnswer();
}

TQXAnswer AskForLine(const TQXDialog& Dialog)
{
    bool IsGiven = false;
    const QString Text = QInputDialog::getText(ParentOfDialogs(), ToQt(Dialog.Title), ToQt(Dialog.Prompt),
                                               QLineEdit::Normal, ToQt(Dialog.Text), &IsGiven);
    return IsGiven ? Accepted(Text) : TQXAnswer();
}

/// Under the button that opened it.
TQXAnswer AskByMenu(const TQXDialog& Dialog)
{
    QMenu Menu;
    for (const std::string& Entry : Dialog.Entries)
        if (Entry == "-")
            Menu.addSeparator();
        else
            Menu.addAction(ToQt(Entry))->setData(ToQt(Entry));
    const QWidget* Button = QApplication::focusWidget();
    const QAction* Chosen = Menu.exec(Button ? Button->mapToGlobal(QPoint(0, Button->height())) : QCursor::pos());
    return Chosen ? Accepted(Chosen->data().toString()) : TQXAnswer();
}

TQXAnswer AskForText(const TQXDialog& Dialog)
{
    QString Text = ToQt(Dialog.Text);
    const QString Title = Dialog.Title.empty() ? QObject::tr("Text") : ToQt(Dialog.Title);
    return EditLines(ParentOfDialogs(), Title, QObject::tr("&Text:"), Text) ? Accepted(Text) : TQXAnswer();
}

TQXAnswer AskYesOrNo(const TQXDialog& Dialog)
{
    const auto Answer =
        QMessageBox::question(ParentOfDialogs(), QApplication::applicationDisplayName(), ToQt(Dialog.Text));
    return {Answer == QMessageBox::Yes, {}};
}
} // namespace

/// A relative path is relative to the project's folder, as in a run.
TQXDialog TQtDesignServices::Located(TQXDialog Dialog) const
{
    const std::string Base = FExpand("%ProjectDir%");
    for (std::string* Path : {&Dialog.File, &Dialog.Folder})
        if (!Path->empty() && Paths::IsAbsolute(Base))
            *Path = Paths::Expand(*Path, Base);
    return Dialog;
}

TQXAnswer TQtDesignServices::ShowDialog(const TQXDialog& Dialog)
{
    switch (Dialog.Kind)
    {
    case TQXDialogKind::Open:
    case TQXDialogKind::Save:
        return AskForFiles(Located(Dialog));
    case TQXDialogKind::Folder:
        return AskForFolder(Located(Dialog));
    case TQXDialogKind::Input:
        return AskForLine(Dialog);
    case TQXDialogKind::Confirm:
        return AskYesOrNo(Dialog);
    case TQXDialogKind::Error:
        if (OnError)
            OnError(Dialog.Text);
        else
            QMessageBox::critical(ParentOfDialogs(), QApplication::applicationDisplayName(), ToQt(Dialog.Text));
        return {true, {}};
    case TQXDialogKind::Message:
        QMessageBox::information(ParentOfDialogs(), QApplication::applicationDisplayName(), ToQt(Dialog.Text));
        return {true, {}};
    case TQXDialogKind::Menu:
        return AskByMenu(Dialog);
    case TQXDialogKind::Text:
        return AskForText(Dialog);
    case TQXDialogKind::Paths:
        return AskForPaths(ParentOfDialogs(), Dialog);
    }
    return {};
}

void TQtDesignServices::ShowForm(TForm& Form)
{
    TFormDialog(ParentOfDialogs(), Form).exec();
    if (!Form.IsClosed())
        Form.Close(false);
}
