#include "platform/Parallel.h"

#include "gtest/gtest.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <vector>

TEST(Parallel, EachNumberIsDoneOnceAndAnErrorComesOut)
{
    for (const std::size_t Count : {0, 1, 500})
    {
        std::vector<std::atomic<int>> Done(Count);
        ForEachAtOnce(Count, [&](std::size_t Number) { ++Done[Number]; });
        EXPECT_TRUE(std::all_of(Done.begin(), Done.end(), [](const auto& Times) { return Times == 1; }));
    }
    const auto Fail = [](std::size_t Number) {
        if (Number == 250)
            throw std::runtime_error("250");
    };
    EXPECT_THROW(ForEachAtOnce(500, Fail), std::runtime_error);
}
