#include "apps/quexley/Answer.h"

#include "platform/Console.h"
#include "platform/Files.h"
#include "platform/TextWidth.h"

#include <algorithm>
#include <cstddef>

int WriteAnswer(std::string_view Text)
{
    CheckWritten(Console::Write(Text));
    return 0;
}

void CheckWritten(const std::error_code& Error)
{
    if (Error == std::errc::broken_pipe)
        throw EClosedPipe();
    if (Error)
        throw EFileError("standard output", Error.message());
}

std::string AlignColumns(const std::vector<std::vector<std::string>>& Rows, std::string_view Indent)
{
    std::vector<std::size_t> Widths;
    for (const auto& Row : Rows)
    {
        Widths.resize(std::max(Widths.size(), Row.size()));
        for (std::size_t Column = 0; Column < Row.size(); ++Column)
            Widths[Column] = std::max(Widths[Column], Texts::Width(Row[Column]));
    }
    std::string Result;
    for (const auto& Row : Rows)
    {
        std::string Line(Indent);
        for (std::size_t Column = 0; Column < Row.size(); ++Column)
            Line += Row[Column] + std::string(Widths[Column] - Texts::Width(Row[Column]) + 2, ' ');
        Line.erase(Line.find_last_not_of(' ') + 1);
        Result += Line + "\n";
    }
    return Result;
}
