// What the fuzzer has found worth keeping, run again.
#include "gtest/gtest.h"

#include "tests/fuzz/AssemblyInfoFuzz.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

TEST(AssemblyInfoUpdater, KeepsItsPromisesForEveryKeptInput)
{
    int Count = 0;
    for (const auto& Entry : std::filesystem::directory_iterator(QUEXLEY_SOURCE_DIR "/tests/fuzz/corpus/assemblyinfo"))
    {
        std::ifstream File(Entry.path(), std::ios::binary);
        const std::string Input(std::istreambuf_iterator<char>(File), {});
        EXPECT_NO_THROW(CheckAssemblyInfo(Input)) << Entry.path();
        ++Count;
    }
    EXPECT_GT(Count, 0);
}
