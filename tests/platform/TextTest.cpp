#include "platform/Text.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

TEST(Text, FoldsCaseAlsoBeyondAscii)
{
    CheckTable("texts", "fold case", [](const TColumns& Row) { return TColumns{Text::FoldCase(Row[0])}; });
}

TEST(Text, TellsAndMendsMalformedUtf8)
{
    CheckTable("texts", "mend UTF-8", [](const TColumns& Row) {
        const std::string Mended = Text::MakeValidUtf8(Row[0]);
        EXPECT_EQ(Text::IsValidUtf8(Row[0]), Mended == Row[0]);
        return TColumns{Mended};
    });
}

TEST(Text, DecodesByMarkThenUtf8ThenWindows1252)
{
    CheckTable("texts", "decode", [](const TColumns& Row) { return TColumns{Text::Decode(Row[0])}; });
}

TEST(Text, TrimsReplacesAndCompares)
{
    CheckTable("texts", "trim", [](const TColumns& Row) { return TColumns{std::string(Text::Trim(Row[0]))}; });
    CheckTable(
        "texts", "replace", [](const TColumns& Row) { return TColumns{Text::Replace(Row[0], Row[1], Row[2])}; }, 3);
    CheckTable(
        "texts", "same",
        [](const TColumns& Row) {
            return TColumns{YesOrNo(Text::Same(Row[0], Row[1])), YesOrNo(Text::StartsWithSame(Row[0], Row[1]))};
        },
        2);
    CheckTable(
        "texts", "edit distance",
        [](const TColumns& Row) { return TColumns{std::to_string(Text::EditDistance(Row[0], Row[1]))}; }, 2);
}
