#pragma once

#include "apps/designer/run/LogView.h"
#include "apps/designer/run/RunUpdate.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTimer>
#include <QWidget>

/// The log of a run, what is running and for how long, and a field to search the log.
class TRunPanel final : public QWidget
{
    Q_OBJECT

public:
    TRunPanel();

    void Begin();
    void Take(const TRunUpdate& Update);
    void End(const QString& Reason);
    [[nodiscard]] TLogView& Log() { return *FLog; }
    void BeginSearch();

private:
    void ShowTime();
    void ShowCounts();
    void Search(int By);

    TLogView* FLog;
    QLabel* FWhat;
    QLabel* FTime;
    QLabel* FGone;
    QProgressBar* FProgress;
    QLineEdit* FSearch;
    QTimer FClock;
    QElapsedTimer FElapsed;
    bool FHasEnd = false;
};
