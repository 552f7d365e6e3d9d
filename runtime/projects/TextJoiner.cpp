#include "runtime/projects/TextJoiner.h"

#include <limits>
#include <utility>

void TTextJoiner::AddOld(std::size_t Place, std::string_view Text)
{
    if (Place < FNextPlace)
        SeparateByBlankLine();
    FText += Text;
    FNextPlace = Place + 1;
}

void TTextJoiner::AddNew(std::string_view Text)
{
    if (Text.empty())
        return;
    SeparateByBlankLine();
    FText += Text;
    FNextPlace = std::numeric_limits<std::size_t>::max();
}

std::string TTextJoiner::Finish(std::size_t Places)
{
    if (FNextPlace != Places)
        RemoveBlankLinesAtEnd();
    return std::move(FText);
}

void TTextJoiner::RemoveBlankLinesAtEnd()
{
    const std::size_t Last = FText.find_last_not_of("\r\n");
    if (Last != std::string::npos && Last + 1 < FText.size())
        FText.replace(Last + 1, std::string::npos, FLineEnd);
}

void TTextJoiner::SeparateByBlankLine()
{
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (FText.empty() || FText == ByteOrderMark)
        return;
    RemoveBlankLinesAtEnd();
    if (!FText.ends_with('\n'))
        FText += FLineEnd;
    FText += FLineEnd;
}
