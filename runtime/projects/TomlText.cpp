#include "runtime/projects/TomlText.h"

#include "host/QXOverloads.h"
#include "platform/Text.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
bool IsControl(char Character)
{
    return static_cast<unsigned char>(Character) < 0x20 || Character == 0x7F;
}

bool IsBareKeyCharacter(char Character)
{
    return (Character >= 'a' && Character <= 'z') || (Character >= 'A' && Character <= 'Z') ||
           (Character >= '0' && Character <= '9') || Character == '_' || Character == '-';
}

/// Whether a literal string may hold the character.
bool IsLiteralCharacter(char Character)
{
    return !IsControl(Character) || Character == '\t';
}

std::string Escape(char Character)
{
    switch (Character)
    {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return IsControl(Character) ? fmt::format("\\u{:04X}", static_cast<unsigned char>(Character))
                                    : std::string(1, Character);
    }
}

/// The inside of a basic string; line feeds become Newline.
std::string EscapeAll(std::string_view Text, std::string_view Newline)
{
    std::string Result;
    for (const char Character : Text)
        Result += Character == '\n' ? std::string(Newline) : Escape(Character);
    return Result;
}

bool CanBeLiteral(std::string_view Text)
{
    return Text.find('\'') == std::string_view::npos && std::all_of(Text.begin(), Text.end(), IsLiteralCharacter);
}

/// Quotes at the end would run into those that end the string.
bool CanBeLiteralLines(std::string_view Text)
{
    return Text.find("'''") == std::string_view::npos && !Text.ends_with('\'') &&
           std::all_of(Text.begin(), Text.end(),
                       [](char Character) { return Character == '\n' || IsLiteralCharacter(Character); });
}
} // namespace

std::string TomlText::Key(std::string_view Name)
{
    const bool IsBare = !Name.empty() && std::all_of(Name.begin(), Name.end(), IsBareKeyCharacter);
    return IsBare ? std::string(Name) : String(Name);
}

std::string TomlText::String(std::string_view Text)
{
    const std::string Valid = Texts::MakeValidUtf8(Text);
    if (Valid.find_first_of("\\\"") != std::string::npos && CanBeLiteral(Valid))
        return fmt::format("'{}'", Valid);
    return fmt::format("\"{}\"", EscapeAll(Valid, "\\n"));
}

std::string TomlText::Lines(std::string_view Text, std::string_view LineEnd)
{
    if (Text.find('\n') == std::string_view::npos)
        return String(Text);
    const std::string Valid = Texts::MakeValidUtf8(Text);
    if (CanBeLiteralLines(Valid))
        return fmt::format("'''{}{}'''", LineEnd, Texts::Replace(Valid, "\n", LineEnd));
    return fmt::format("\"\"\"{}{}\"\"\"", LineEnd, EscapeAll(Valid, LineEnd));
}

std::string TomlText::Boolean(bool Value)
{
    return Value ? "true" : "false";
}

std::string TomlText::Array(std::span<const std::string> Items)
{
    std::string Result = "[";
    for (const std::string& Item : Items)
        Result += (Result.size() > 1 ? ", " : "") + String(Item);
    return Result + "]";
}

std::string TomlText::List(std::span<const std::string> Items, std::string_view LineEnd)
{
    if (Items.size() < 2)
        return Array(Items);
    std::string Result = "[";
    for (const std::string& Item : Items)
        Result += fmt::format("{}    {},", LineEnd, String(Item));
    return fmt::format("{}{}]", Result, LineEnd);
}

std::string TomlText::Value(TQXPropertyType Type, const TQXPropertyValue& Value, std::string_view LineEnd)
{
    return std::visit(TQXOverloads{[&](const std::string& Text) { return Lines(Text, LineEnd); },
                                   [](bool Flag) { return Boolean(Flag); },
                                   [](int Number) { return std::to_string(Number); },
                                   [&](const std::vector<std::string>& Items) {
                                       return Type == TQXPropertyType::Set ? Array(Items) : List(Items, LineEnd);
                                   }},
                      Value);
}
