#include "runtime/projects/FileFindings.h"

#include "runtime/HostErrors.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace
{
bool IsControl(char Character)
{
    return static_cast<unsigned char>(Character) < 0x20 || Character == 0x7F;
}
} // namespace

std::string FormatFinding(std::string_view File, TTomlPosition Position, std::string_view Message)
{
    std::string Result = fmt::format("{}:{}:{}: ", File, Position.Line, Position.Column);
    for (const char Character : Message)
        if (IsControl(Character))
            Result += fmt::format("\\u{:04X}", static_cast<unsigned char>(Character));
        else
            Result += Character;
    return Result;
}

void TFileFindings::Add(TTomlPosition Position, std::string Message)
{
    FFindings.emplace_back(Position, std::move(Message));
}

void TFileFindings::AddWrongType(const TTomlNode& Value, std::string_view Name, std::string_view Expected)
{
    Add(Value.Begin, fmt::format("\"{}\" expects {}, not {}", Name, Expected, TomlKindName(Value.Kind)));
}

void TFileFindings::ThrowIfAny() const
{
    if (FFindings.empty())
        return;
    auto Sorted = FFindings;
    std::stable_sort(Sorted.begin(), Sorted.end(),
                     [](const auto& Left, const auto& Right) { return Left.first < Right.first; });
    std::string Message;
    for (const auto& [Position, Text] : Sorted)
        Message += (Message.empty() ? "" : "\n") + FormatFinding(FFile, Position, Text);
    throw EHostFileError(Message);
}

std::string QuotedNames(std::span<const std::string_view> Names)
{
    return Names.empty() ? std::string() : fmt::format("\"{}\"", fmt::join(Names, "\", \""));
}
