#include "platform/Text.h"
#include "platform/TextWidth.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

TEST(Text, FoldsCaseAlsoBeyondAscii)
{
    CheckTable("texts", "fold case", [](const TColumns& Row) { return TColumns{Texts::FoldCase(Row[0])}; });
}

TEST(Text, IsAsWideAsInATerminal)
{
    CheckTable("texts", "width", [](const TColumns& Row) {
        return TColumns{std::to_string(Texts::Width(Row[0])), std::string(Texts::FirstColumns(Row[0], 4))};
    });
}

TEST(Text, TellsAndMendsMalformedUtf8)
{
    CheckTable("texts", "mend UTF-8", [](const TColumns& Row) {
        const std::string Mended = Texts::MakeValidUtf8(Row[0]);
        EXPECT_EQ(Texts::IsValidUtf8(Row[0]), Mended == Row[0]);
        return TColumns{Mended};
    });
}

TEST(Text, DecodesByMarkThenUtf8ThenWindows1252)
{
    CheckTable("texts", "decode", [](const TColumns& Row) { return TColumns{Texts::Decode(Row[0])}; });
}

TEST(Text, TrimsReplacesAndCompares)
{
    CheckTable("texts", "trim", [](const TColumns& Row) { return TColumns{std::string(Texts::Trim(Row[0]))}; });
    CheckTable(
        "texts", "replace", [](const TColumns& Row) { return TColumns{Texts::Replace(Row[0], Row[1], Row[2])}; }, 3);
    CheckTable(
        "texts", "same",
        [](const TColumns& Row) {
            return TColumns{YesOrNo(Texts::Same(Row[0], Row[1])), YesOrNo(Texts::StartsWithSame(Row[0], Row[1]))};
        },
        2);
    CheckTable(
        "texts", "edit distance",
        [](const TColumns& Row) { return TColumns{std::to_string(Texts::EditDistance(Row[0], Row[1]))}; }, 2);
}

TEST(Text, StepsByCharacters)
{
    const std::string Sample = "a\u00E4\u20AC\U0001F600b"; // 1, 2, 3, 4 bytes and 1
    const std::size_t Cuts[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10};
    for (std::size_t Limit = 0; Limit < Sample.size(); ++Limit)
        EXPECT_EQ(Texts::CutLength(Sample, Limit), Cuts[Limit]) << Limit;
    EXPECT_EQ(Texts::CutLength("\x80\x80\x80\x80\x80\x80", 5), 5U);
    EXPECT_EQ(Texts::FirstCharacters(Sample, 3), Sample.substr(0, 6));
    EXPECT_EQ(Texts::FirstCharacters(Sample, 9), Sample);
    EXPECT_EQ(Texts::ValidLength(Sample + "\xE2\x82"), Sample.size());
}

TEST(Text, ReadsWholeNumbersOnly)
{
    EXPECT_EQ(Texts::ParseWhole<int>("-12"), -12);
    EXPECT_EQ(Texts::ParseWhole<unsigned char>("fF", 16), 255);
    for (const std::string_view Wrong : {"", " 1", "1 ", "1.0", "0x1", "+1", "2147483648"})
        EXPECT_EQ(Texts::ParseWhole<int>(Wrong), std::nullopt) << Wrong;
    EXPECT_EQ(Texts::ParseWhole<unsigned char>("100", 16), std::nullopt);
}
