#include "runtime/projects/JsonText.h"

#include "platform/Text.h"

#include <fmt/format.h>

namespace
{
std::string Quoted(std::string_view Value)
{
    std::string Result = "\"";
    for (const char Character : Texts::MakeValidUtf8(Value))
        if (Character == '"' || Character == '\\')
            Result += {'\\', Character};
        else if (static_cast<unsigned char>(Character) < 0x20)
            Result += fmt::format("\\u{:04x}", static_cast<unsigned char>(Character));
        else
            Result += Character;
    return Result + '"';
}
} // namespace

void TJsonText::Key(std::string_view Name)
{
    BeginValue();
    FText += Quoted(Name) + ": ";
    FHasKey = true;
}

void TJsonText::String(std::string_view Value)
{
    BeginValue();
    FText += Quoted(Value);
}

void TJsonText::Integer(int Value)
{
    BeginValue();
    FText += std::to_string(Value);
}

void TJsonText::Boolean(bool Value)
{
    BeginValue();
    FText += Value ? "true" : "false";
}

void TJsonText::Strings(std::span<const std::string_view> Values)
{
    Array([&] {
        for (const std::string_view Value : Values)
            String(Value);
    });
}

void TJsonText::Strings(std::span<const std::string> Values)
{
    Array([&] {
        for (const std::string& Value : Values)
            String(Value);
    });
}

void TJsonText::Member(std::string_view Name, std::string_view Value)
{
    Key(Name);
    String(Value);
}

void TJsonText::Open(char Bracket)
{
    BeginValue();
    FText += Bracket;
    ++FLevel;
    FIsFirst = true;
}

void TJsonText::Close(char Bracket)
{
    --FLevel;
    if (!FIsFirst)
        BeginLine();
    FText += Bracket;
    FIsFirst = false;
    if (FLevel == 0)
        FText += '\n';
}

void TJsonText::BeginValue()
{
    if (!FHasKey && FLevel > 0)
    {
        if (!FIsFirst)
            FText += ',';
        BeginLine();
    }
    FHasKey = false;
    FIsFirst = false;
}

void TJsonText::BeginLine()
{
    FText += '\n';
    FText.append(2 * FLevel, ' ');
}
