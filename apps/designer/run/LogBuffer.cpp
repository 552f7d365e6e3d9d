#include "apps/designer/run/LogBuffer.h"

#include <iterator>

void TLogBuffer::Add(std::vector<TLogLine> Lines, std::int64_t GoneBefore)
{
    FGone += GoneBefore;
    for (TLogLine& Line : Lines)
    {
        FCharacters += Line.Text.size();
        FLines.push_back(std::move(Line));
    }
    while (FLines.size() > MaximumLines || FCharacters > MaximumCharacters)
    {
        FCharacters -= FLines.front().Text.size();
        FLines.pop_front();
        ++FGone;
    }
}

void TLogBuffer::Clear()
{
    FLines.clear();
    FCharacters = 0;
    FGone = 0;
}

std::vector<TLogLine> TLogBuffer::TakeAll()
{
    std::vector<TLogLine> Lines(std::make_move_iterator(FLines.begin()), std::make_move_iterator(FLines.end()));
    Clear();
    return Lines;
}
