#include "platform/CommandLines.h"

#include <algorithm>
#include <cstddef>

namespace
{
constexpr std::string_view Blanks = " \t";

/// Reads one argument from the start of Text and takes it off. A double quote opens and closes a quoted part; within
/// one, two of them stand for one. Backslashes are plain but before a double quote, where each pair stands for one
/// and an odd one makes the quote plain.
std::string TakeArgument(std::string_view& Text)
{
    std::string Argument;
    bool Quoted = false;
    std::size_t Index = 0;
    while (Index < Text.size() && (Quoted || Blanks.find(Text[Index]) == std::string_view::npos))
    {
        const std::size_t Slashes = std::min(Text.find_first_not_of('\\', Index), Text.size()) - Index;
        Index += Slashes;
        if (Index == Text.size() || Text[Index] != '"')
        {
            Argument.append(Slashes, '\\');
            if (Slashes == 0)
                Argument += Text[Index++];
            continue;
        }
        Argument.append(Slashes / 2, '\\');
        const bool Doubled = Slashes % 2 == 0 && Quoted && Text.substr(Index).starts_with("\"\"");
        if (Slashes % 2 != 0 || Doubled)
            Argument += '"';
        else
            Quoted = !Quoted;
        Index += Doubled ? 2 : 1;
    }
    Text.remove_prefix(Index);
    return Argument;
}
} // namespace

std::vector<std::string> CommandLines::Split(std::string_view Arguments)
{
    std::vector<std::string> Result;
    for (;;)
    {
        Arguments.remove_prefix(std::min(Arguments.find_first_not_of(Blanks), Arguments.size()));
        if (Arguments.empty())
            return Result;
        Result.push_back(TakeArgument(Arguments));
    }
}

std::string CommandLines::JoinLines(std::string_view Arguments)
{
    std::string Result;
    bool Quoted = false;
    bool AtLineEnd = false;
    std::size_t Slashes = 0; // that stand before the present character
    for (const char Character : Arguments)
    {
        if (Character == '"' && Slashes % 2 == 0)
            Quoted = !Quoted;
        Slashes = Character == '\\' ? Slashes + 1 : 0;
        if (!Quoted && (Character == '\r' || Character == '\n'))
        {
            AtLineEnd = true;
            continue;
        }
        if (AtLineEnd && !Result.empty() && !Result.ends_with(' '))
            Result += ' ';
        AtLineEnd = false;
        Result += Character;
    }
    return Result;
}

std::string CommandLines::Quote(std::string_view Argument, bool Always)
{
    if (!Always && !Argument.empty() && Argument.find_first_of(" \t\r\n\v\"") == std::string_view::npos)
        return std::string(Argument);
    std::string Result = "\"";
    std::size_t Slashes = 0; // that stand before the present character
    for (const char Character : Argument)
    {
        if (Character == '"')
            Result.append(Slashes + 1, '\\');
        Slashes = Character == '\\' ? Slashes + 1 : 0;
        Result += Character;
    }
    return Result.append(Slashes, '\\') += '"';
}
