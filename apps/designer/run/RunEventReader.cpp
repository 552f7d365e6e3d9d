#include "apps/designer/run/RunEventReader.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <algorithm>

namespace
{
using TLineKind = TLogLine::TKind;
using TStateKind = TActionState::TKind;

QString Tr(const char* Text)
{
    return QCoreApplication::translate("Run", Text);
}

QString TextOf(const QJsonObject& Event, const char* Member)
{
    return Event.value(QLatin1String(Member)).toString();
}

int IndexOf(const QJsonObject& Event)
{
    return Event.value(QLatin1String("index")).toInt();
}

/// `FILE:LINE: text`, without what is not known.
QString Placed(const QJsonObject& Event, const QString& Text)
{
    QString Place = TextOf(Event, "file");
    if (const int Line = Event.value(QLatin1String("line")).toInt(); Line > 0 && !Place.isEmpty())
        Place += QStringLiteral(":%1").arg(Line);
    return Place.isEmpty() ? Text : Place + QStringLiteral(": ") + Text;
}

TStateKind StateOf(const QString& Result)
{
    const std::map<QString, TStateKind> Kinds = {{QStringLiteral("success"), TStateKind::Success},
                                                 {QStringLiteral("skipped"), TStateKind::Skipped},
                                                 {QStringLiteral("terminated"), TStateKind::Terminated},
                                                 {QStringLiteral("planned"), TStateKind::Planned}};
    const auto Known = Kinds.find(Result);
    return Known == Kinds.end() ? TStateKind::Failure : Known->second;
}
} // namespace

void TRunEventReader::Read(const QByteArray& Bytes, TRunUpdate& Update)
{
    qsizetype Begin = 0;
    for (qsizetype End = Bytes.indexOf('\n'); End >= 0; End = Bytes.indexOf('\n', Begin))
    {
        const QByteArray Line = QByteArray::fromRawData(Bytes.constData() + Begin, End - Begin);
        ReadLine(FRest.isEmpty() ? Line : FRest + Line, Update);
        FRest.clear();
        Begin = End + 1;
    }
    FRest += Bytes.mid(Begin);
}

/// What is no event comes from something that went wrong before the first one.
void TRunEventReader::ReadLine(const QByteArray& Line, TRunUpdate& Update)
{
    const QJsonObject Event = QJsonDocument::fromJson(Line).object();
    const auto Handler = Handlers().find(TextOf(Event, "event"));
    if (Handler != Handlers().end())
        (this->*Handler->second)(Event, Update);
    else
        Add(Update, TLineKind::ErrorOutput, 0, QString::fromUtf8(Line));
}

const std::map<QString, TRunEventReader::THandler>& TRunEventReader::Handlers()
{
    static const std::map<QString, THandler> Known = {
        {QStringLiteral("host-error"), &TRunEventReader::OnHostError},
        {QStringLiteral("host-warning"), &TRunEventReader::OnHostWarning},
        {QStringLiteral("run-started"), &TRunEventReader::OnRunStarted},
        {QStringLiteral("validation-error"), &TRunEventReader::OnValidationError},
        {QStringLiteral("action-started"), &TRunEventReader::OnActionStarted},
        {QStringLiteral("message"), &TRunEventReader::OnMessage},
        {QStringLiteral("expansion-error"), &TRunEventReader::OnExpansionError},
        {QStringLiteral("script-error"), &TRunEventReader::OnScriptError},
        {QStringLiteral("process-started"), &TRunEventReader::OnProcessStarted},
        {QStringLiteral("output"), &TRunEventReader::OnOutput},
        {QStringLiteral("diagnostic"), &TRunEventReader::OnDiagnostic},
        {QStringLiteral("process-ended"), &TRunEventReader::OnProcessEnded},
        {QStringLiteral("action-ended"), &TRunEventReader::OnActionEnded},
        {QStringLiteral("run-ended"), &TRunEventReader::OnRunEnded},
    };
    return Known;
}

void TRunEventReader::Add(TRunUpdate& Update, TLineKind Kind, int Action, const QString& Text) const
{
    for (qsizetype Begin = 0; Begin <= Text.size();)
    {
        const qsizetype Found = Text.indexOf(QLatin1Char('\n'), Begin);
        const qsizetype End = Found < 0 ? Text.size() : Found;
        QString Line = Text.mid(Begin, std::min<qsizetype>(End - Begin, MaximumLength));
        if (End - Begin > MaximumLength)
            Line += Tr(" ... (%1 characters more)").arg(End - Begin - MaximumLength);
        Update.Lines.push_back({Kind, Action, std::move(Line)});
        Begin = End + 1;
    }
}

void TRunEventReader::AddProblem(TRunUpdate& Update, const QJsonObject& Event, const QString& Text, bool IsError)
{
    FHasProblem |= IsError;
    if (FProblems++ < MaximumProblems)
        Update.Problems.push_back({IsError, IndexOf(Event), FName, TextOf(Event, "label"), Text});
}

void TRunEventReader::OnHostError(const QJsonObject& Event, TRunUpdate& Update)
{
    const QString Text = Placed(Event, TextOf(Event, "message"));
    Add(Update, TLineKind::Error, 0, Text);
    AddProblem(Update, Event, Text);
}

void TRunEventReader::OnHostWarning(const QJsonObject& Event, TRunUpdate& Update)
{
    const QString Text = Placed(Event, TextOf(Event, "message"));
    Add(Update, TLineKind::Warning, 0, Text);
    AddProblem(Update, Event, Text, false);
}

void TRunEventReader::OnRunStarted(const QJsonObject& Event, TRunUpdate& Update)
{
    Update.Project = TextOf(Event, "project");
    Update.Actions = Event.value(QLatin1String("actions")).toInt();
}

void TRunEventReader::OnValidationError(const QJsonObject& Event, TRunUpdate& Update)
{
    FName = TextOf(Event, "name");
    const QString Text = TextOf(Event, "message");
    Add(Update, TLineKind::Error, IndexOf(Event), QStringLiteral("%1: %2").arg(FName, Text));
    AddProblem(Update, Event, Text);
}

void TRunEventReader::OnActionStarted(const QJsonObject& Event, TRunUpdate& Update)
{
    FName = TextOf(Event, "name");
    FLastMessage.clear();
    FHasProblem = false;
    Add(Update, TLineKind::Heading, IndexOf(Event), QStringLiteral("%1  %2").arg(IndexOf(Event)).arg(FName));
    Update.States.push_back({IndexOf(Event), {TStateKind::Running, 0}});
}

void TRunEventReader::OnMessage(const QJsonObject& Event, TRunUpdate& Update)
{
    FLastMessage = TextOf(Event, "text");
    Add(Update, TLineKind::Text, IndexOf(Event), FLastMessage);
}

void TRunEventReader::OnExpansionError(const QJsonObject& Event, TRunUpdate& Update)
{
    const QString Text =
        QStringLiteral("%1: %2: %3").arg(TextOf(Event, "label"), TextOf(Event, "text"), TextOf(Event, "reason"));
    Add(Update, TLineKind::Error, IndexOf(Event), Text);
    AddProblem(Update, Event, Text);
}

void TRunEventReader::OnScriptError(const QJsonObject& Event, TRunUpdate& Update)
{
    const int Line = Event.value(QLatin1String("line")).toInt();
    const QString Place = Line > 0 ? Tr("%1, line %2").arg(TextOf(Event, "script")).arg(Line) : TextOf(Event, "script");
    const QString Text = QStringLiteral("%1: %2").arg(Place, TextOf(Event, "reason"));
    Add(Update, TLineKind::Error, IndexOf(Event), Text);
    AddProblem(Update, Event, Text);
    if (!Update.Problems.empty())
        Update.Problems.back().Label = TextOf(Event, "script");
}

void TRunEventReader::OnProcessStarted(const QJsonObject& Event, TRunUpdate& Update)
{
    Add(Update, TLineKind::Process, IndexOf(Event),
        QStringLiteral("> %1 %2").arg(TextOf(Event, "executable"), TextOf(Event, "arguments")));
    if (const QString Folder = TextOf(Event, "folder"); !Folder.isEmpty())
        Add(Update, TLineKind::Process, IndexOf(Event), Tr("  in %1").arg(Folder));
    if (const QString File = TextOf(Event, "response_file"); !File.isEmpty())
        Add(Update, TLineKind::Process, IndexOf(Event), File.trimmed());
}

void TRunEventReader::OnOutput(const QJsonObject& Event, TRunUpdate& Update)
{
    const bool IsError = TextOf(Event, "stream") == QLatin1String("stderr");
    Add(Update, IsError ? TLineKind::ErrorOutput : TLineKind::Output, IndexOf(Event), TextOf(Event, "text"));
}

/// Says more about the line before it.
void TRunEventReader::OnDiagnostic(const QJsonObject& Event, TRunUpdate& Update)
{
    const bool IsError = TextOf(Event, "severity") == QLatin1String("error");
    if (!Update.Lines.empty())
        Update.Lines.back().Kind = IsError ? TLineKind::Error : TLineKind::Warning;
    AddProblem(Update, Event,
               Placed(Event, QStringLiteral("%1 %2").arg(TextOf(Event, "code"), TextOf(Event, "message"))), IsError);
}

void TRunEventReader::OnProcessEnded(const QJsonObject& Event, TRunUpdate& Update)
{
    const int ExitCode = Event.value(QLatin1String("exit_code")).toInt();
    if (const QString Signal = TextOf(Event, "signal"); !Signal.isEmpty())
        Add(Update, TLineKind::Error, IndexOf(Event), Tr("The tool was ended by %1.").arg(Signal));
    else if (Event.value(QLatin1String("timed_out")).toBool())
        Add(Update, TLineKind::Error, IndexOf(Event), Tr("The tool was ended: its time was up."));
    else if (ExitCode != 0)
        Add(Update, TLineKind::Text, IndexOf(Event), Tr("Exit code %1").arg(ExitCode));
}

void TRunEventReader::OnActionEnded(const QJsonObject& Event, TRunUpdate& Update)
{
    const TStateKind State = StateOf(TextOf(Event, "result"));
    const double Seconds = Event.value(QLatin1String("seconds")).toDouble();
    Update.States.push_back({IndexOf(Event), {State, Seconds}});
    FIsDryRun |= State == TStateKind::Planned;
    if (State == TStateKind::Failure)
    {
        const QString Text = Tr("Failed after %1 s").arg(Seconds, 0, 'f', 1);
        Add(Update, TLineKind::Error, IndexOf(Event), Text);
        if (!FHasProblem)
            AddProblem(Update, Event, FLastMessage.isEmpty() ? Text : FLastMessage);
    }
    else if (State == TStateKind::Skipped)
        Add(Update, TLineKind::Process, IndexOf(Event),
            Tr("%1  Skipped: %2").arg(IndexOf(Event)).arg(TextOf(Event, "reason")));
}

void TRunEventReader::OnRunEnded(const QJsonObject& Event, TRunUpdate& Update)
{
    const auto Number = [&](const char* Member) { return Event.value(QLatin1String(Member)).toInt(); };
    Update.End = TRunEnd{TextOf(Event, "result"), Number("succeeded"), Number("failed"), Number("skipped"),
                         Event.value(QLatin1String("seconds")).toDouble()};
    const QString Text = Tr("%1: %2 %6, %3 failed, %4 skipped in %5 s")
                             .arg(Update.End->Result)
                             .arg(Update.End->Succeeded)
                             .arg(Update.End->Failed)
                             .arg(Update.End->Skipped)
                             .arg(Update.End->Seconds, 0, 'f', 1)
                             .arg(FIsDryRun ? Tr("planned") : Tr("succeeded"));
    Add(Update, Update.End->Result == QLatin1String("success") ? TLineKind::Success : TLineKind::Error, 0, Text);
}
