#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QStringList>
#include <QTimer>

/// Tells when one of some files may have changed, also one that was replaced by another of its name.
class TFileWatch final : public QObject
{
    Q_OBJECT

public:
    TFileWatch();
    void SetFiles(const QStringList& Files);
    /// Tells again after a while.
    void LookAgain() { FPause.start(); }

signals:
    void Changed();

private:
    void Watch();

    QStringList FFiles;
    QFileSystemWatcher FWatcher;
    QTimer FPause; ///< programs write in several steps
};
