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

TEST(Text, StepsByCharacters)
{
    const std::string Sample = "a\u00E4\u20AC\U0001F600b"; // 1, 2, 3, 4 bytes and 1
    EXPECT_EQ(Text::CountCharacters(Sample), 5U);
    const std::size_t Cuts[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10};
    for (std::size_t Limit = 0; Limit < Sample.size(); ++Limit)
        EXPECT_EQ(Text::CutLength(Sample, Limit), Cuts[Limit]) << Limit;
    EXPECT_EQ(Text::CutLength("\x80\x80\x80\x80\x80\x80", 5), 5U);
    EXPECT_EQ(Text::FirstCharacters(Sample, 3), Sample.substr(0, 6));
    EXPECT_EQ(Text::FirstCharacters(Sample, 9), Sample);
    EXPECT_EQ(Text::ValidLength(Sample + "\xE2\x82"), Sample.size());
}

TEST(Text, ReadsWholeNumbersOnly)
{
    EXPECT_EQ(Text::ParseWhole<int>("-12"), -12);
    EXPECT_EQ(Text::ParseWhole<unsigned char>("fF", 16), 255);
    for (const std::string_view Wrong : {"", " 1", "1 ", "1.0", "0x1", "+1", "2147483648"})
        EXPECT_EQ(Text::ParseWhole<int>(Wrong), std::nullopt) << Wrong;
    EXPECT_EQ(Text::ParseWhole<unsigned char>("100", 16), std::nullopt);
}
