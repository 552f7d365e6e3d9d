#include "apps/quexley/writers/ErrorStreamWriter.h"

#include "runtime/HostErrors.h"

#include <cstdio>
#include <string>

template <TSeverity Severity> void TErrorStreamWriter::Write(const THostEvent<Severity>& Event)
{
    const THostFinding Finding{.File = std::string(Event.File.value_or("")),
                               .Line = Event.Line.value_or(0),
                               .Column = Event.Column.value_or(0),
                               .Message =
                                   (Severity == TSeverity::Warning ? "warning: " : "") + std::string(Event.Message)};
    const std::string Line = (Finding.Line > 0 ? "" : "quexley: ") + Finding.Text() + "\n";
    std::fwrite(Line.data(), 1, Line.size(), stderr);
}

void TErrorStreamWriter::Handle(const TRunEvent& Event)
{
    if (const auto* Error = std::get_if<THostErrorEvent>(&Event))
        Write(*Error);
    else if (const auto* Warning = std::get_if<THostWarningEvent>(&Event))
        Write(*Warning);
}
