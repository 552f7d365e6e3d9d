#pragma once

#include "apps/designer/MessageBar.h"
#include "apps/designer/document/FileWatch.h"
#include "apps/designer/document/ProjectDocument.h"

#include <QByteArray>
#include <QMenu>
#include <QObject>
#include <QWidget>

/// New, open, save: the questions that come with them, the projects that were opened lately, and files that other
/// programs change.
class TFileCommands final : public QObject
{
    Q_OBJECT

public:
    TFileCommands(QWidget& Window, TProjectDocument& Document, TMessageBar& Bar);

    void StartNew();
    void AskOpen();
    /// Begins a project that builds a solution, or what lies in a folder.
    void ImportSolution();
    void ImportFolder();
    void Import(const std::string& Source);
    /// Opens a file or folder after asking what becomes of changes; false if it was not opened.
    bool Open(const QString& File);
    /// Gives whether the file holds the project now.
    bool Save();
    bool SaveAs();
    /// Asks what becomes of changes; true if the project may go.
    [[nodiscard]] bool MayLeave();
    /// Fills a menu with the projects opened lately whenever it opens.
    void ShowRecent(QMenu& Menu);
    [[nodiscard]] static QStringList Recent();

signals:
    /// Something worth a line in the status bar.
    void Told(const QString& Text);
    void Opened();
    /// The project may go next: whatever is being typed has to be in it.
    void Leaving();
    /// What an import left out, or found missing.
    void Noted(const QStringList& Notes);

private:
    [[nodiscard]] QStringList IncludedFiles() const;
    [[nodiscard]] QByteArray IncludedContent() const;
    template <typename TDo> bool Try(TDo Do);
    void Remember();
    void WatchFiles();
    void LookAtDisk();
    void TakeFromDisk();

    QWidget& FWindow;
    TProjectDocument& FDocument;
    TMessageBar& FBar;
    TFileWatch FWatch;
    QByteArray FIncluded; ///< what the included files held
};
