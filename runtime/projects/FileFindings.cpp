#include "runtime/projects/FileFindings.h"

#include "platform/Text.h"
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

/// How many edits still count as a slip of the hand.
std::size_t AllowedEdits(std::size_t Length)
{
    return std::min(std::max<std::size_t>(2, Length / 3), Length / 2);
}

std::size_t Difference(std::size_t Left, std::size_t Right)
{
    return Left > Right ? Left - Right : Right - Left;
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

std::string_view NearestName(std::string_view Name, std::span<const std::string_view> Candidates)
{
    const std::string Lower = Text::Lower(Name);
    const std::size_t Allowed = AllowedEdits(Name.size());
    std::string_view Nearest;
    std::size_t Fewest = Allowed + 1;
    for (const std::string_view Candidate : Candidates)
    {
        if (Text::Same(Candidate, Name))
            return Candidate;
        if (Difference(Candidate.size(), Name.size()) > Allowed)
            continue;
        if (const std::size_t Edits = Text::EditDistance(Lower, Text::Lower(Candidate)); Edits < Fewest)
        {
            Fewest = Edits;
            Nearest = Candidate;
        }
    }
    return Nearest;
}

std::string DidYouMean(std::string_view Name, std::span<const std::string_view> Candidates)
{
    const std::string_view Nearest = NearestName(Name, Candidates);
    return Nearest.empty() ? std::string() : fmt::format("; did you mean \"{}\"?", Nearest);
}

std::string QuotedNames(std::span<const std::string_view> Names)
{
    return Names.empty() ? std::string() : fmt::format("\"{}\"", fmt::join(Names, "\", \""));
}
