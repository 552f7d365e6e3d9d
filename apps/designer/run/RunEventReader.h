#pragma once

#include "apps/designer/run/RunUpdate.h"

#include <QByteArray>
#include <QJsonObject>

#include <map>

/// Reads the log events of a run, a JSON object per line, in any pieces.
class TRunEventReader
{
public:
    /// Problems beyond these are in the log only.
    static constexpr int MaximumProblems = 1000;
    /// A line that is longer is cut.
    static constexpr int MaximumLength = 4000;

    /// Takes more bytes of the run's output and adds what the lines that are complete now say.
    void Read(const QByteArray& Bytes, TRunUpdate& Update);

private:
    using THandler = void (TRunEventReader::*)(const QJsonObject&, TRunUpdate&);
    static const std::map<QString, THandler>& Handlers();

    void ReadLine(const QByteArray& Line, TRunUpdate& Update);
    void OnHostError(const QJsonObject& Event, TRunUpdate& Update);
    void OnHostWarning(const QJsonObject& Event, TRunUpdate& Update);
    void OnRunStarted(const QJsonObject& Event, TRunUpdate& Update);
    void OnValidationError(const QJsonObject& Event, TRunUpdate& Update);
    void OnActionStarted(const QJsonObject& Event, TRunUpdate& Update);
    void OnMessage(const QJsonObject& Event, TRunUpdate& Update);
    void OnExpansionError(const QJsonObject& Event, TRunUpdate& Update);
    void OnScriptError(const QJsonObject& Event, TRunUpdate& Update);
    void OnProcessStarted(const QJsonObject& Event, TRunUpdate& Update);
    void OnOutput(const QJsonObject& Event, TRunUpdate& Update);
    void OnDiagnostic(const QJsonObject& Event, TRunUpdate& Update);
    void OnProcessEnded(const QJsonObject& Event, TRunUpdate& Update);
    void OnActionEnded(const QJsonObject& Event, TRunUpdate& Update);
    void OnRunEnded(const QJsonObject& Event, TRunUpdate& Update);

    void Add(TRunUpdate& Update, TLogLine::TKind Kind, int Action, const QString& Text) const;
    void AddProblem(TRunUpdate& Update, const QJsonObject& Event, const QString& Text, bool IsError = true);

    QByteArray FRest; ///< of a line that is not complete
    QString FName;    ///< of the running action
    int FProblems = 0;
    QString FLastMessage;     ///< of the running action
    bool FHasProblem = false; ///< the running action told of an error
    bool FIsDryRun = false;   ///< actions end as planned
};
