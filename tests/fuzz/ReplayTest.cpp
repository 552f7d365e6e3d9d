// What the fuzzers have found worth keeping, run again.
#include "gtest/gtest.h"

#include "platform/Files.h"
#include "tests/fuzz/FuzzTarget.h"

#include <filesystem>
#include <set>

TEST(Fuzz, EveryKeptInputKeepsThePromises)
{
    std::set<std::string> Folders;
    for (const auto& Folder : std::filesystem::directory_iterator(QUEXLEY_SOURCE_DIR "/tests/fuzz/corpus"))
        Folders.insert(Folder.path().filename().string());
    for (const TFuzzTarget& Target : TFuzzTarget::All())
    {
        ASSERT_EQ(Folders.erase(std::string(Target.Name)), 1U) << Target.Name;
        const std::filesystem::path Folder =
            std::filesystem::path(QUEXLEY_SOURCE_DIR "/tests/fuzz/corpus") / Target.Name;
        for (const auto& Input : std::filesystem::directory_iterator(Folder))
            EXPECT_NO_THROW(Target.Check(Files::Read(Input.path().string()))) << Input.path();
    }
    EXPECT_TRUE(Folders.empty()) << *Folders.begin();
}
