#include "runtime/projects/FileFindings.h"

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

THostFinding MakeFinding(std::string File, TTomlPosition Position, std::string_view Message)
{
    std::string Result;
    for (const char Character : Message)
        if (IsControl(Character))
            Result += fmt::format("\\u{:04X}", static_cast<unsigned char>(Character));
        else
            Result += Character;
    return {std::move(File), static_cast<int>(Position.Line), static_cast<int>(Position.Column), std::move(Result)};
}

void TFileFindings::Add(TTomlPosition Position, std::string Message)
{
    FFindings.emplace_back(Position, std::move(Message));
}

void TFileFindings::AddWrongType(const TTomlNode& Value, std::string_view Name, std::string_view Expected)
{
    Add(Value.Begin, fmt::format("\"{}\" expects {}, not {}", Name, Expected, TomlKindName(Value.Kind)));
}

std::vector<THostFinding> TFileFindings::Sorted() const
{
    auto InOrder = FFindings;
    std::stable_sort(InOrder.begin(), InOrder.end(),
                     [](const auto& Left, const auto& Right) { return Left.first < Right.first; });
    std::vector<THostFinding> Findings;
    Findings.reserve(InOrder.size());
    for (const auto& [Position, Text] : InOrder)
        Findings.push_back(MakeFinding(FFile, Position, Text));
    return Findings;
}

void TFileFindings::ThrowIfAny() const
{
    if (!FFindings.empty())
        throw EHostFileError(Sorted());
}

std::string QuotedNames(std::span<const std::string_view> Names)
{
    return Names.empty() ? std::string() : fmt::format("\"{}\"", fmt::join(Names, "\", \""));
}
