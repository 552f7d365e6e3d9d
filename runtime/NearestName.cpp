#include "runtime/NearestName.h"

#include "platform/Text.h"

#include <algorithm>
#include <fmt/format.h>

namespace
{
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

std::string_view NearestName(std::string_view Name, std::span<const std::string_view> Candidates)
{
    const std::string Lower = Texts::Lower(Name);
    const std::size_t Allowed = AllowedEdits(Name.size());
    std::string_view Nearest;
    std::size_t Fewest = Allowed + 1;
    for (const std::string_view Candidate : Candidates)
    {
        if (Texts::Same(Candidate, Name))
            return Candidate;
        if (Difference(Candidate.size(), Name.size()) > Allowed)
            continue;
        if (const std::size_t Edits = Texts::EditDistance(Lower, Texts::Lower(Candidate)); Edits < Fewest)
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
