// Dialogs for files and folders. Filters are pairs of caption and masks, all parted by "|".
#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

class QWidget;

/// What a dialog for a file asks.
struct TFileQuestion
{
    QString Title{};
    QString Filter{};
    QString Extension{};   ///< of a file that is named without one
    int FilterPlace = 0;   ///< of the entry that is chosen at first, from 0
    bool IsSaving = false; ///< the file is going to be written
    bool MustExist = false;
    bool IsMultiSelect = false;
};

namespace FileDialogs
{
/// Begins at File; gives those that were chosen, none if it was cancelled.
[[nodiscard]] std::vector<std::string> AskForFiles(QWidget* Parent, const TFileQuestion& Question,
                                                   const std::string& File);
/// The same for one file; true if one was chosen and put there.
[[nodiscard]] bool AskForFile(QWidget* Parent, const TFileQuestion& Question, std::string& File);
[[nodiscard]] bool AskForFolder(QWidget* Parent, const QString& Title, std::string& Folder);
/// The entries as Qt writes them: "Text Files (*.txt)".
[[nodiscard]] QStringList NameFilters(const QString& Filter);
} // namespace FileDialogs
