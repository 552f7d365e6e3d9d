#include "platform/Paths.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

namespace
{
constexpr auto Posix = TPathStyle::Posix;
constexpr auto Windows = TPathStyle::Windows;
} // namespace

TEST(Paths, NormaliseFormsEachStyle)
{
    CheckTable("paths", "normalise", [](const TColumns& Row) {
        return TColumns{Paths::Normalise(Row[0], Posix), Paths::Normalise(Row[0], Windows)};
    });
}

TEST(Paths, AbsolutePathsAreLeftAloneByJoinAndExpand)
{
    CheckTable(
        "paths", "expand",
        [](const TColumns& Row) {
            return TColumns{Paths::Expand(Row[0], Row[1], Posix), Paths::Expand(Row[0], Row[1], Windows)};
        },
        2);
    EXPECT_EQ(Paths::Join("a\\", "b/../c", Posix), "a\\b/../c");
    EXPECT_FALSE(Paths::IsAbsolute("a:", Posix) && !Paths::IsAbsolute("a:", Windows));
    EXPECT_FALSE(Paths::IsAbsolute("1:/x", Windows));
}

TEST(Paths, RelativeToLeadsBack)
{
    CheckTable(
        "paths", "relative to",
        [](const TColumns& Row) {
            return TColumns{Paths::RelativeTo(Row[0], Row[1], Posix), Paths::RelativeTo(Row[0], Row[1], Windows)};
        },
        2);
}

TEST(Paths, PartsStayAsTheyAreWritten)
{
    CheckTable("paths", "parts", [](const TColumns& Row) {
        const std::string& Path = Row[0];
        EXPECT_EQ(Paths::FileName(Path), Row[2] + Row[3]);
        EXPECT_EQ(Paths::ChangeExtension(Path, ".x"), Row[1] + Row[2] + ".x");
        return TColumns{std::string(Paths::Folder(Path)), std::string(Paths::BareName(Path)),
                        std::string(Paths::Extension(Path))};
    });
}

TEST(Paths, TrailingDelimiters)
{
    CheckTable("paths", "trailing delimiter", [](const TColumns& Row) {
        return TColumns{Paths::WithTrailing(Row[0], Windows), Paths::WithoutTrailing(Row[0], Windows)};
    });
    EXPECT_EQ(Paths::WithTrailing("a", Posix), "a/");
    EXPECT_EQ(Paths::WithoutTrailing("//", Posix), "/");
}
