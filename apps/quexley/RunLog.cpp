#include "apps/quexley/RunLog.h"

#include "apps/quexley/Answer.h"
#include "apps/quexley/writers/AzureWriter.h"
#include "apps/quexley/writers/ErrorStreamWriter.h"
#include "apps/quexley/writers/GitHubWriter.h"
#include "apps/quexley/writers/JsonWriter.h"
#include "apps/quexley/writers/TeamCityWriter.h"
#include "apps/quexley/writers/TextWriter.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/Processes.h"

#include <utility>

namespace
{
bool IsSet(const std::string& Variable)
{
    std::string Value;
    return Environment::Get(Variable, Value) && !Value.empty();
}

bool IsForcedOff(const std::string& Variable)
{
    std::string Value;
    return Environment::Get(Variable, Value) && Value == "0";
}

/// A terminal that understands escape sequences.
bool IsCapableTerminal()
{
    std::string Kind;
    return Console::IsTerminal() && Environment::Get("TERM", Kind) && Kind != "dumb";
}

bool WantsColour(TColourChoice Choice)
{
    if (Choice != TColourChoice::Auto)
        return Choice == TColourChoice::Always;
    if (IsSet("NO_COLOR"))
        return false;
    if (IsSet("FORCE_COLOR"))
        return !IsForcedOff("FORCE_COLOR");
    return IsCapableTerminal();
}
} // namespace

TRunLog::TRunLog(const TArguments& Arguments) : FLogFile(Arguments.LogFile)
{
    if (!FLogFile.empty())
        FCopy = std::make_unique<TFileOutput>(FLogFile);
    FEvents.Add(MakeWriter(Arguments));
    // The file holds what a quiet run does not show: that is what people look for in it afterwards.
    if (FCopy)
        FEvents.Add(std::make_unique<TTextWriter>(*FCopy, TTextStyle{.Verbose = Arguments.Verbose}));
    if (!Arguments.ReportFile.empty())
    {
        auto Report = std::make_unique<TJUnitReport>(Arguments.ReportFile);
        FReport = Report.get();
        FEvents.Add(std::move(Report));
    }
    // The last one: what was said until then has been written when standard error speaks.
    FEvents.Add(std::make_unique<TErrorStreamWriter>());
    if (Arguments.FailOnWarning)
        FGate.emplace(FEvents);
}

std::unique_ptr<IRunEvents> TRunLog::MakeWriter(const TArguments& Arguments)
{
    TTextStyle Style;
    Style.Colour = WantsColour(Arguments.Colour);
    Style.Quiet = Arguments.Quiet;
    Style.Verbose = Arguments.Verbose;
    switch (Arguments.Format)
    {
    case TLogFormat::Json:
        return std::make_unique<TJsonWriter>(FStandardOutput);
    case TLogFormat::GitHub:
        return std::make_unique<TGitHubWriter>(FStandardOutput, Style);
    case TLogFormat::Azure:
        return std::make_unique<TAzureWriter>(FStandardOutput, Style);
    case TLogFormat::TeamCity:
        return std::make_unique<TTeamCityWriter>(FStandardOutput, Style);
    case TLogFormat::Text:
        break;
    }
    Style.LiveLine = IsCapableTerminal();
    return std::make_unique<TTextWriter>(FStandardOutput, Style);
}

void TRunLog::Finish()
{
    FStandardOutput.Flush();
    if (FCopy)
        FCopy->Flush();
    if (FReport)
        FReport->Finish();
    // Whoever ended the run does not ask any more what became of its log.
    if (FStandardOutput.Failure() == std::errc::broken_pipe || Termination::Requested() == 0)
        CheckWritten(FStandardOutput.Failure());
    if (FCopy && FCopy->Failure() && Termination::Requested() == 0)
        throw EFileError(FLogFile, FCopy->Failure().message());
}
