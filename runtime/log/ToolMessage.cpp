#include "runtime/log/ToolMessage.h"

#include "platform/Text.h"

#include <algorithm>

namespace
{
/// Longer lines are data, and looking for a place in them again and again could take long.
constexpr std::size_t LongestMessage = 8192;

constexpr bool IsDigit(char Character)
{
    return Character >= '0' && Character <= '9';
}

constexpr bool IsCodeCharacter(char Character)
{
    return IsDigit(Character) || (Character >= 'A' && Character <= 'Z') || (Character >= 'a' && Character <= 'z');
}

/// Takes Word from the front of Text.
bool Take(std::string_view& Text, std::string_view Word)
{
    if (!Text.starts_with(Word))
        return false;
    Text.remove_prefix(Word.size());
    return true;
}

/// Takes the longest front of Text whose characters pass.
template <typename TTest> std::string_view TakeWhile(std::string_view& Text, TTest Passes)
{
    const auto End = std::find_if_not(Text.begin(), Text.end(), Passes);
    const std::string_view Front(Text.data(), static_cast<std::size_t>(End - Text.begin()));
    Text.remove_prefix(Front.size());
    return Front;
}

/// Takes `error CODE: text` apart.
std::optional<TToolMessage> ParseSeverity(std::string_view Text)
{
    // Millions of lines come by here, and few of them begin like this.
    if (Text.empty() || std::string_view("few").find(Text.front()) == std::string_view::npos)
        return std::nullopt;
    TToolMessage Message;
    Take(Text, "fatal ");
    Message.IsError = Take(Text, "error ");
    if (!Message.IsError && !Take(Text, "warning "))
        return std::nullopt;
    Message.Code = TakeWhile(Text, IsCodeCharacter);
    Take(Text, " ");
    if (Message.Code.empty() || !Take(Text, ":"))
        return std::nullopt;
    Message.Text = Texts::Trim(Text);
    return Message;
}

/// Takes `file(line,col)` apart; the tool may add the place's end behind the column.
bool ParsePlace(std::string_view Place, TToolMessage& Message)
{
    const std::size_t Open = Place.rfind('(');
    if (Open == std::string_view::npos || Open == 0 || !Place.ends_with(')'))
        return false;
    Message.File = Texts::Trim(Place.substr(0, Open));
    std::string_view Numbers = Place.substr(Open + 1, Place.size() - Open - 2);
    Message.Line = TakeWhile(Numbers, IsDigit);
    if (Take(Numbers, ","))
        Message.Column = TakeWhile(Numbers, IsDigit);
    return !Message.Line.empty() && std::all_of(Numbers.begin(), Numbers.end(), [](char Character) {
        return IsDigit(Character) || Character == ',' || Character == '-';
    });
}
} // namespace

std::optional<TToolMessage> ParseToolMessage(std::string_view Line)
{
    if (Line.size() > LongestMessage)
        return std::nullopt;
    std::size_t Colon = Line.find(':');
    if (Colon == std::string_view::npos)
        return std::nullopt;
    for (; Colon != std::string_view::npos; Colon = Line.find(':', Colon + 1))
    {
        if (Colon == 0 || Line[Colon - 1] != ')' || !Line.substr(Colon + 1).starts_with(' '))
            continue;
        if (std::optional<TToolMessage> Message = ParseSeverity(Line.substr(Colon + 2));
            Message && ParsePlace(Line.substr(0, Colon), *Message))
            return Message;
    }
    return ParseSeverity(Texts::Trim(Line));
}
