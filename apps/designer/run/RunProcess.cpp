#include "apps/designer/run/RunProcess.h"

#include "apps/designer/run/RunEventReader.h"

#include <iterator>
#include <utility>

namespace
{
constexpr int UpdateInterval = 50; // milliseconds

template <typename T> void MoveBehind(std::vector<T>& Items, std::vector<T>& More)
{
    Items.insert(Items.end(), std::make_move_iterator(More.begin()), std::make_move_iterator(More.end()));
}

QString WhyEnded(const QProcess& Process)
{
    if (Process.error() == QProcess::FailedToStart)
        return TRunProcess::tr("%1 cannot be started: %2").arg(Process.program(), Process.errorString());
    if (Process.exitStatus() == QProcess::CrashExit)
        return TRunProcess::tr("The run was ended from outside.");
    return {};
}
} // namespace

void TRunMailbox::Put(TRunUpdate&& Update)
{
    const std::lock_guard Lock(FMutex);
    FLines.Add(std::move(Update.Lines));
    MoveBehind(FUpdate.States, Update.States);
    MoveBehind(FUpdate.Problems, Update.Problems);
    if (Update.Actions)
        FUpdate.Actions = Update.Actions;
    if (Update.End)
        FUpdate.End = Update.End;
    if (!Update.Project.isEmpty())
        FUpdate.Project = Update.Project;
}

TRunUpdate TRunMailbox::Take()
{
    const std::lock_guard Lock(FMutex);
    TRunUpdate Update = std::exchange(FUpdate, {});
    Update.Gone = FLines.Gone();
    Update.Lines = FLines.TakeAll();
    return Update;
}

TRunProcess::TRunProcess() : FProcess(new QProcess)
{
    FProcess->moveToThread(&FThread);
    connect(&FThread, &QThread::finished, FProcess, &QObject::deleteLater);
    const auto Reader = std::make_shared<TRunEventReader>();
    connect(FProcess, &QProcess::started, FProcess, [Reader] { *Reader = TRunEventReader(); });
    const auto Read = [this, Reader] {
        TRunUpdate Update;
        Reader->Read(FProcess->readAllStandardOutput(), Update);
        FMailbox.Put(std::move(Update));
    };
    connect(FProcess, &QProcess::readyReadStandardOutput, FProcess, Read);
    const auto End = [this](const QString& Reason) {
        QMetaObject::invokeMethod(this, [this, Reason] {
            FClock.stop();
            FIsRunning = false;
            Deliver();
            emit Ended(Reason);
        });
    };
    connect(FProcess, &QProcess::finished, FProcess, [this, Read, End] {
        Read();
        End(FIsForced ? tr("The run was ended by force.") : WhyEnded(*FProcess));
    });
    connect(FProcess, &QProcess::errorOccurred, FProcess, [this, End](QProcess::ProcessError Error) {
        if (Error == QProcess::FailedToStart)
            End(WhyEnded(*FProcess));
    });
    FClock.setInterval(UpdateInterval);
    connect(&FClock, &QTimer::timeout, this, &TRunProcess::Deliver);
    FThread.start();
}

/// The run ends with the window; it ends its tools by itself.
TRunProcess::~TRunProcess()
{
    QMetaObject::invokeMethod(
        FProcess,
        [this] {
            constexpr int Patience = 3000; // milliseconds
            FProcess->disconnect();
            if (FProcess->state() == QProcess::NotRunning)
                return;
            FProcess->terminate();
            if (!FProcess->waitForFinished(Patience))
                FProcess->kill();
            FProcess->waitForFinished(Patience);
        },
        Qt::BlockingQueuedConnection);
    FThread.quit();
    FThread.wait();
}

void TRunProcess::Start(const QString& Program, const QStringList& Words)
{
    FIsRunning = true;
    FIsAsked = false;
    QMetaObject::invokeMethod(FProcess, [this, Program, Words] {
        FIsForced = false;
        FProcess->setStandardErrorFile(QProcess::nullDevice()); // what it says there is in the events, too
        FProcess->setStandardInputFile(QProcess::nullDevice());
        FProcess->start(Program, Words);
    });
    FClock.start();
}

void TRunProcess::Stop()
{
    if (!FIsRunning)
        return;
    const bool Again = std::exchange(FIsAsked, true);
    QMetaObject::invokeMethod(FProcess, [this, Again] {
        FIsForced = Again;
        Again ? FProcess->kill() : FProcess->terminate();
    });
}

void TRunProcess::Deliver()
{
    emit Updated(FMailbox.Take());
}
