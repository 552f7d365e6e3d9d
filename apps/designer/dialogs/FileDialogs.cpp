#include "apps/designer/dialogs/FileDialogs.h"

#include "apps/designer/QtText.h"
#include "platform/Paths.h"

#include <QFileDialog>

namespace FileDialogs
{
QStringList NameFilters(const QString& Filter)
{
    QStringList Result;
    const QStringList Parts = Filter.split(QLatin1Char('|'));
    for (qsizetype Place = 0; Place + 1 < Parts.size(); Place += 2)
    {
        const QString Caption = Parts[Place].section(QLatin1String(" ("), 0, 0);
        QString Masks = Parts[Place + 1];
        Masks.replace(QLatin1Char(';'), QLatin1Char(' ')).replace(QLatin1String("*.*"), QLatin1String("*"));
        Result.append(QStringLiteral("%1 (%2)").arg(Caption, Masks.simplified()));
    }
    return Result;
}

std::vector<std::string> AskForFiles(QWidget* Parent, const TFileQuestion& Question, const std::string& File)
{
    QFileDialog Dialog(Parent, Question.Title);
    Dialog.setAcceptMode(Question.IsSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // An action may name a file that another one makes.
    Dialog.setFileMode(Question.IsMultiSelect ? QFileDialog::ExistingFiles
                       : Question.MustExist   ? QFileDialog::ExistingFile
                                              : QFileDialog::AnyFile);
    Dialog.setDefaultSuffix(Question.Extension);
    if (const QStringList Filters = NameFilters(Question.Filter); !Filters.isEmpty())
    {
        Dialog.setNameFilters(Filters);
        Dialog.selectNameFilter(Filters.value(Question.FilterPlace, Filters.front()));
    }
    if (Paths::IsAbsolute(File))
        Dialog.setDirectory(ToQt(Paths::Folder(File)));
    Dialog.selectFile(ToQt(Paths::FileName(File)));
    std::vector<std::string> Chosen;
    if (Dialog.exec() == QDialog::Accepted)
        for (const QString& Each : Dialog.selectedFiles())
            Chosen.push_back(FromQt(Each));
    return Chosen;
}

bool AskForFile(QWidget* Parent, const TFileQuestion& Question, std::string& File)
{
    const std::vector<std::string> Chosen = AskForFiles(Parent, Question, File);
    if (!Chosen.empty())
        File = Chosen.front();
    return !Chosen.empty();
}

bool AskForFolder(QWidget* Parent, const QString& Title, std::string& Folder)
{
    const QString Chosen = QFileDialog::getExistingDirectory(Parent, Title, ToQt(Folder));
    if (Chosen.isEmpty())
        return false;
    Folder = FromQt(Chosen);
    return true;
}
} // namespace FileDialogs
