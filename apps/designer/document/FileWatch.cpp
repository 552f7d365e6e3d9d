#include "apps/designer/document/FileWatch.h"

#include <QFileInfo>

TFileWatch::TFileWatch()
{
    constexpr int Milliseconds = 250;
    FPause.setSingleShot(true);
    FPause.setInterval(Milliseconds);
    const auto Wait = [this] {
        if (!FPause.isActive())
            FPause.start();
    };
    connect(&FWatcher, &QFileSystemWatcher::fileChanged, this, Wait);
    connect(&FWatcher, &QFileSystemWatcher::directoryChanged, this, Wait);
    connect(&FPause, &QTimer::timeout, this, [this] {
        Watch();
        emit Changed();
    });
}

void TFileWatch::SetFiles(const QStringList& Files)
{
    if (Files == FFiles)
        return;
    FFiles = Files;
    if (!FWatcher.files().isEmpty())
        FWatcher.removePaths(FWatcher.files());
    if (!FWatcher.directories().isEmpty())
        FWatcher.removePaths(FWatcher.directories());
    Watch();
}

/// A file that was replaced is watched no longer, its folder tells of the new one.
void TFileWatch::Watch()
{
    for (const QString& File : FFiles)
    {
        const QFileInfo Info(File);
        if (Info.exists() && !FWatcher.files().contains(File))
            FWatcher.addPath(File);
        if (!FWatcher.directories().contains(Info.absolutePath()))
            FWatcher.addPath(Info.absolutePath());
    }
}
