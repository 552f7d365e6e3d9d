#pragma once

#include "platform/Text.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// Cuts the blocks that come from a pipe into lines. Lines that lie whole in a block are delivered as views into
/// it; only what straddles two blocks is copied.
class TLineSplitter
{
public:
    /// A longer line is delivered in pieces of at most this size.
    static constexpr std::size_t MaximumLength = 1024 * 1024;
    /// Gives where a text that goes on is best cut: at Length or before it, 0 for nowhere.
    using TPlaceToCut = std::function<std::size_t(std::string_view Text, std::size_t Length)>;

    explicit TLineSplitter(TPlaceToCut PlaceToCut = {}) : FPlaceToCut(std::move(PlaceToCut)) {}
    template <typename TDeliver> void Add(std::string_view Block, const TDeliver& Deliver);
    /// Delivers a last line that has no end.
    template <typename TDeliver> void Finish(const TDeliver& Deliver);

private:
    template <typename TDeliver> void DeliverLine(std::string_view Line, const TDeliver& Deliver) const;
    template <typename TDeliver>
    std::string_view DeliverPieces(std::string_view Text, std::size_t Limit, const TDeliver& Deliver) const;
    [[nodiscard]] std::size_t PieceLength(std::string_view Text) const;

    TPlaceToCut FPlaceToCut;
    std::string FRest;
};

template <typename TDeliver> void TLineSplitter::Add(std::string_view Block, const TDeliver& Deliver)
{
    std::size_t End = Block.find('\n');
    if (!FRest.empty() && End != std::string_view::npos)
    {
        FRest.append(Block.substr(0, End + 1));
        DeliverLine(std::string_view(FRest).substr(0, FRest.size() - 1), Deliver);
        FRest.clear();
        Block.remove_prefix(End + 1);
        End = Block.find('\n');
    }
    for (; End != std::string_view::npos; End = Block.find('\n'))
    {
        DeliverLine(Block.substr(0, End), Deliver);
        Block.remove_prefix(End + 1);
    }
    FRest.append(Block);
    // One byte more than a piece may wait: a CR that the next block's LF makes part of the line's end.
    if (FRest.size() > MaximumLength + 1)
        FRest = std::string(DeliverPieces(FRest, MaximumLength + 1, Deliver));
}

template <typename TDeliver> void TLineSplitter::Finish(const TDeliver& Deliver)
{
    if (!FRest.empty())
        Deliver(DeliverPieces(FRest, MaximumLength, Deliver));
    FRest.clear();
}

template <typename TDeliver> void TLineSplitter::DeliverLine(std::string_view Line, const TDeliver& Deliver) const
{
    if (!Line.empty() && Line.back() == '\r')
        Line.remove_suffix(1);
    Deliver(DeliverPieces(Line, MaximumLength, Deliver));
}

/// Delivers pieces while the text is longer than Limit, and gives what remains of it.
template <typename TDeliver>
std::string_view TLineSplitter::DeliverPieces(std::string_view Text, std::size_t Limit, const TDeliver& Deliver) const
{
    while (Text.size() > Limit)
    {
        const std::size_t Length = PieceLength(Text);
        Deliver(Text.substr(0, Length));
        Text.remove_prefix(Length);
    }
    return Text;
}

inline std::size_t TLineSplitter::PieceLength(std::string_view Text) const
{
    const std::size_t Length = Texts::CutLength(Text, MaximumLength);
    const std::size_t Place = FPlaceToCut ? FPlaceToCut(Text, Length) : Length;
    return Place == 0 ? Length : Place;
}
