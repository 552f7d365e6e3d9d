#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Finds many texts in one pass over another text. Making it takes a time that grows as the texts' length, finding one
/// that grows as the length of what is searched, however many texts there are and whatever is in them.
class TTextFinder
{
public:
    struct TRange
    {
        std::size_t Begin = 0;
        std::size_t End = 0;
    };

    /// Empty texts are not looked for.
    explicit TTextFinder(std::vector<std::string> Texts);

    /// Where the texts stand, in order; those that overlap are one range.
    [[nodiscard]] std::vector<TRange> Find(std::string_view Searched) const;
    /// How many bytes at the end may be the beginning of a text that goes on behind it.
    [[nodiscard]] std::size_t OpenEnd(std::string_view Searched) const;

private:
    /// A beginning of texts. The nodes stand in the order of their lengths, the children of each beside each other.
    struct TNode
    {
        std::uint32_t FirstChild = 0;
        std::uint32_t Suffix = 0; ///< the longest other node at this one's end
        std::uint32_t Match = 0;  ///< the length of the longest text at its end
    };

    void Build(const std::vector<std::string>& Texts);
    void BuildSkips(const std::vector<std::string>& Texts);
    void AddNode(std::uint32_t Parent, unsigned char Byte);
    [[nodiscard]] std::uint32_t Child(std::uint32_t Node, unsigned char Byte) const;
    [[nodiscard]] std::uint32_t Step(std::uint32_t Node, unsigned char Byte) const;
    [[nodiscard]] std::size_t NextCandidate(std::string_view Searched, std::size_t Place) const;

    std::vector<TNode> FNodes;
    std::vector<unsigned char> FBytes;    // the last one of each node
    std::vector<std::uint32_t> FLevels;   // the first node of each length
    std::array<std::uint8_t, 256> FSkips; // by the last byte of a window: how far the next beginning is at least
    std::size_t FWindow = 0;              // the length of the shortest text, as far as it fits a skip
};
