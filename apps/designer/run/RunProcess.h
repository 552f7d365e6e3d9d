#pragma once

#include "apps/designer/run/LogBuffer.h"
#include "apps/designer/run/RunUpdate.h"

#include <QObject>
#include <QProcess>
#include <QStringList>
#include <QThread>
#include <QTimer>

#include <memory>
#include <mutex>

/// Passes what a run says from the thread that reads it to the one that shows it. What waits is bounded.
class TRunMailbox
{
public:
    void Put(TRunUpdate&& Update);
    [[nodiscard]] TRunUpdate Take();

private:
    std::mutex FMutex;
    TLogBuffer FLines;
    TRunUpdate FUpdate; ///< but for its lines
};

/// Runs a project in a process of its own. It is read in a thread of its own, and told of from time to time, so that
/// the window stays at hand however much a tool says.
class TRunProcess final : public QObject
{
    Q_OBJECT

public:
    TRunProcess();
    ~TRunProcess() override;

    /// Starts the command line program with these words; nothing else may be running.
    void Start(const QString& Program, const QStringList& Words);
    /// Asks the run to end, and the second time makes it end.
    void Stop();
    [[nodiscard]] bool IsRunning() const { return FIsRunning; }

signals:
    void Updated(const TRunUpdate& Update);
    /// The process is gone; Reason tells why, if it could not be started or broke down.
    void Ended(const QString& Reason);

private:
    void Deliver();

    TRunMailbox FMailbox;
    QThread FThread;
    QProcess* FProcess; ///< lives in the thread
    QTimer FClock;
    bool FIsRunning = false;
    bool FIsAsked = false;  ///< to end
    bool FIsForced = false; ///< to end; belongs to the thread
};
