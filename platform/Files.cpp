#include "platform/Files.h"

#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <optional>

namespace
{
/// The length of the character at Index of a text in UTF-8; a malformed byte counts as one.
std::size_t CharacterLength(std::string_view Text, std::size_t Index)
{
    return std::max<std::size_t>(Texts::CharacterLength(Text.substr(Index)), 1);
}

/// A character set of a mask, `[a-z]` or `[!a-z]`.
struct TCharacterSet
{
    std::string_view Items; ///< what stands between the brackets, without the "!"
    bool Negated = false;
    std::size_t Length = 0; ///< in the mask, brackets included
};

/// The set at the start of Mask; none if it is not closed, its bracket then standing for itself.
std::optional<TCharacterSet> ReadSet(std::string_view Mask)
{
    const std::size_t End = Mask.find(']');
    if (Mask.empty() || Mask.front() != '[' || End == std::string_view::npos)
        return std::nullopt;
    const std::string_view Items = Mask.substr(1, End - 1);
    const bool Negated = Items.starts_with('!');
    return TCharacterSet{Items.substr(Negated ? 1 : 0), Negated, End + 1};
}

/// In UTF-8 the order of bytes is that of characters, so ranges compare as text.
bool Contains(const TCharacterSet& Set, std::string_view Character)
{
    const std::string_view Items = Set.Items;
    bool Found = false;
    for (std::size_t Index = 0; Index < Items.size() && !Found;)
    {
        const std::string_view First = Items.substr(Index, CharacterLength(Items, Index));
        std::string_view Last = First;
        Index += First.size();
        if (Index + 1 < Items.size() && Items[Index] == '-')
        {
            Last = Items.substr(Index + 1, CharacterLength(Items, Index + 1));
            Index += 1 + Last.size();
        }
        Found = Character >= First && Character <= Last;
    }
    return Found != Set.Negated;
}

/// How much of a mask, not at a "*", the character matches; 0: it does not.
std::size_t MatchCharacter(std::string_view Mask, std::string_view Character)
{
    if (Mask.empty())
        return 0;
    if (Mask.front() == '?')
        return 1;
    if (const auto Set = ReadSet(Mask))
        return Contains(*Set, Character) ? Set->Length : 0;
    return Mask.starts_with(Character) ? Character.size() : 0;
}

/// Both are folded. Only the last "*" is ever gone back to, so a mask of many costs no more than their product.
bool Matches(std::string_view Name, std::string_view Mask)
{
    std::size_t NameIndex = 0;
    std::size_t MaskIndex = 0;
    std::optional<std::size_t> Star; // behind the last "*"
    std::size_t StarName = 0;        // where what follows it is tried
    while (NameIndex < Name.size())
    {
        if (MaskIndex < Mask.size() && Mask[MaskIndex] == '*')
        {
            Star = ++MaskIndex;
            StarName = NameIndex;
            continue;
        }
        const std::string_view Character = Name.substr(NameIndex, CharacterLength(Name, NameIndex));
        if (const std::size_t Matched = MatchCharacter(Mask.substr(MaskIndex), Character); Matched != 0)
        {
            MaskIndex += Matched;
            NameIndex += Character.size();
            continue;
        }
        if (!Star)
            return false;
        StarName += CharacterLength(Name, StarName);
        NameIndex = StarName;
        MaskIndex = *Star;
    }
    return Mask.find_first_not_of('*', MaskIndex) == std::string_view::npos;
}
} // namespace

bool Files::MatchesMask(std::string_view Name, std::string_view Mask)
{
    return Mask == "*.*" || Matches(Texts::FoldCase(Name), Texts::FoldCase(Mask));
}
