#include "runtime/log/TextFinder.h"

#include <algorithm>
#include <limits>

namespace
{
/// Texts that begin alike: places in the sorted texts.
struct TGroup
{
    std::size_t Begin = 0;
    std::size_t End = 0;
};

std::size_t EndOfSameByte(const std::vector<std::string>& Texts, TGroup Group, std::size_t Place)
{
    std::size_t End = Group.Begin;
    while (End < Group.End && Texts[End][Place] == Texts[Group.Begin][Place])
        ++End;
    return End;
}

void Join(std::vector<TTextFinder::TRange>& Ranges, TTextFinder::TRange Range)
{
    while (!Ranges.empty() && Ranges.back().End > Range.Begin)
    {
        Range.Begin = std::min(Range.Begin, Ranges.back().Begin);
        Ranges.pop_back();
    }
    Ranges.push_back(Range);
}
} // namespace

TTextFinder::TTextFinder(std::vector<std::string> Texts) : FNodes(1), FBytes(1), FSkips()
{
    std::erase(Texts, std::string());
    std::sort(Texts.begin(), Texts.end());
    Texts.erase(std::unique(Texts.begin(), Texts.end()), Texts.end());
    Build(Texts);
    BuildSkips(Texts);
}

/// Level by level: all that a node's suffix needs stands before it.
void TTextFinder::Build(const std::vector<std::string>& Texts)
{
    std::vector<TGroup> Level{{0, Texts.size()}};
    for (std::uint32_t Node = 0; !Level.empty();)
    {
        const auto Length = static_cast<std::uint32_t>(FLevels.size());
        FLevels.push_back(Node);
        std::vector<TGroup> Next;
        for (TGroup Group : Level)
        {
            const bool IsText = Group.Begin < Group.End && Texts[Group.Begin].size() == Length;
            FNodes[Node].Match = IsText ? Length : FNodes[FNodes[Node].Suffix].Match;
            FNodes[Node].FirstChild = static_cast<std::uint32_t>(FNodes.size());
            Group.Begin += IsText ? 1U : 0U;
            while (Group.Begin < Group.End)
            {
                AddNode(Node, static_cast<unsigned char>(Texts[Group.Begin][Length]));
                Next.push_back({Group.Begin, EndOfSameByte(Texts, Group, Length)});
                Group.Begin = Next.back().End;
            }
            ++Node;
        }
        Level = std::move(Next);
    }
    FNodes.push_back({static_cast<std::uint32_t>(FNodes.size()), 0, 0});
}

void TTextFinder::AddNode(std::uint32_t Parent, unsigned char Byte)
{
    const std::uint32_t Suffix = Parent == 0 ? 0 : Step(FNodes[Parent].Suffix, Byte);
    FNodes.push_back({0, Suffix, 0});
    FBytes.push_back(Byte);
}

void TTextFinder::BuildSkips(const std::vector<std::string>& Texts)
{
    FWindow = std::numeric_limits<std::uint8_t>::max();
    for (const std::string& Text : Texts)
        FWindow = std::min(FWindow, Text.size());
    FSkips.fill(static_cast<std::uint8_t>(FWindow));
    for (const std::string& Text : Texts)
        for (std::size_t Place = 0; Place < FWindow; ++Place)
        {
            std::uint8_t& Skip = FSkips[static_cast<unsigned char>(Text[Place])];
            Skip = std::min(Skip, static_cast<std::uint8_t>(FWindow - 1 - Place));
        }
}

/// The node for a byte behind Node; 0 if there is none.
std::uint32_t TTextFinder::Child(std::uint32_t Node, unsigned char Byte) const
{
    const auto First = FBytes.begin() + FNodes[Node].FirstChild;
    const auto Last = FBytes.begin() + FNodes[Node + 1].FirstChild;
    const auto Found = std::lower_bound(First, Last, Byte);
    return Found == Last || *Found != Byte ? 0 : static_cast<std::uint32_t>(Found - FBytes.begin());
}

/// The longest node at the end of Node and a byte behind it.
std::uint32_t TTextFinder::Step(std::uint32_t Node, unsigned char Byte) const
{
    for (;; Node = FNodes[Node].Suffix)
    {
        const std::uint32_t Found = Child(Node, Byte);
        if (Found != 0 || Node == 0)
            return Found;
    }
}

/// Where from Place on the next text may begin.
std::size_t TTextFinder::NextCandidate(std::string_view Searched, std::size_t Place) const
{
    while (Place + FWindow <= Searched.size())
    {
        const std::uint8_t Skip = FSkips[static_cast<unsigned char>(Searched[Place + FWindow - 1])];
        if (Skip == 0)
            return Place;
        Place += Skip;
    }
    return Searched.size();
}

std::vector<TTextFinder::TRange> TTextFinder::Find(std::string_view Searched) const
{
    std::vector<TRange> Ranges;
    std::uint32_t Node = 0;
    for (std::size_t Place = NextCandidate(Searched, 0); Place < Searched.size();)
    {
        Node = Step(Node, static_cast<unsigned char>(Searched[Place++]));
        if (const std::uint32_t Length = FNodes[Node].Match; Length != 0)
            Join(Ranges, {Place - Length, Place});
        if (Node == 0)
            Place = NextCandidate(Searched, Place);
    }
    return Ranges;
}

std::size_t TTextFinder::OpenEnd(std::string_view Searched) const
{
    std::uint32_t Node = 0;
    for (const char Byte : Searched.substr(Searched.size() - std::min(Searched.size(), FLevels.size())))
        Node = Step(Node, static_cast<unsigned char>(Byte));
    return static_cast<std::size_t>(std::upper_bound(FLevels.begin(), FLevels.end(), Node) - FLevels.begin()) - 1;
}
