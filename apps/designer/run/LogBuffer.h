#pragma once

#include "apps/designer/run/LogLine.h"

#include <cstdint>
#include <deque>
#include <vector>

/// The last lines of a log: how many there are and how much text they hold is bounded.
class TLogBuffer
{
public:
    static constexpr std::size_t MaximumLines = 100'000;
    static constexpr std::int64_t MaximumCharacters = 32'000'000;

    /// Adds lines; the oldest ones go where there is no room. So many went before they came here.
    void Add(std::vector<TLogLine> Lines, std::int64_t GoneBefore = 0);
    void Clear();
    /// Gives its lines away and begins anew.
    [[nodiscard]] std::vector<TLogLine> TakeAll();

    [[nodiscard]] int Count() const { return static_cast<int>(FLines.size()); }
    /// A line by its place among those that are there, from 0.
    [[nodiscard]] const TLogLine& operator[](int Place) const { return FLines[static_cast<std::size_t>(Place)]; }
    /// How many lines have gone.
    [[nodiscard]] std::int64_t Gone() const { return FGone; }

private:
    std::deque<TLogLine> FLines;
    std::int64_t FCharacters = 0;
    std::int64_t FGone = 0;
};
