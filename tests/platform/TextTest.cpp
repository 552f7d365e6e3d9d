#include "platform/Text.h"

#include "gtest/gtest.h"

#include <string>

using namespace std::string_literals;

TEST(Text, FoldsCaseAlsoBeyondAscii)
{
    const struct
    {
        std::string Text, Folded;
    } Cases[] = {
        {"ABC xyz_09[", "abc xyz_09["},
        {"ÄÖÜ ÉÇ Ñ", "äöü éç ñ"},
        {"Straße", "straße"},
        {"ΑΒΓ", "αβγ"},
        {"ПРОЕКТ", "проект"},
        {"日本語", "日本語"},
        {"A\xFF\xC3", "a\xFF\xC3"},
        {"12345678\xC3\x84", "12345678ä"s},
        {"", ""},
    };
    for (const auto& Case : Cases)
        EXPECT_EQ(Text::FoldCase(Case.Text), Case.Folded) << Case.Text;
}

TEST(Text, TellsAndMendsMalformedUtf8)
{
    const struct
    {
        std::string Bytes, Mended;
    } Cases[] = {
        {"plain ascii, longer than a block", "plain ascii, longer than a block"},
        {"ä€😀", "ä€😀"},
        {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
        {"12345678\xFFx", "12345678\uFFFDx"},
        {"\xC0\x80", "\uFFFD\uFFFD"},                     // overlong
        {"\xE0\x9F\xBF", "\uFFFD\uFFFD\uFFFD"},           // overlong
        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},           // surrogate
        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}, // beyond Unicode
        {"\xE2\x82", "\uFFFD\uFFFD"},                     // cut off
        {"a\x80z", "a\uFFFDz"},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Text::IsValidUtf8(Case.Bytes), Case.Bytes == Case.Mended) << Case.Mended;
        EXPECT_EQ(Text::MakeValidUtf8(Case.Bytes), Case.Mended);
    }
}

TEST(Text, DecodesByMarkThenUtf8ThenWindows1252)
{
    const struct
    {
        std::string Bytes, Text;
    } Cases[] = {
        {"", ""},
        {"\xEF\xBB\xBFgrün", "grün"},
        {"\xEF\xBB\xBF\xFC", "\uFFFD"},
        {"grün", "grün"},
        {"gr\xFCn \x80\x81\x9F", "grün €\u0081Ÿ"},
        {"\xFF\xFE"
         "A\0\xAC\x20"s,
         "A€"},
        {"\xFE\xFF\0A\x20\xAC"s, "A€"},
        {"\xFF\xFE\x3D\xD8\x00\xDE"s, "😀"},
        {"\xFF\xFE\x3D\xD8"
         "A\0"s,
         "\uFFFDA"},
        {"\xFF\xFE\x00\xDE"s, "\uFFFD"},
        {"\xFF\xFE"
         "A\0B"s,
         "A\uFFFD"},
    };
    for (const auto& Case : Cases)
        EXPECT_EQ(Text::Decode(Case.Bytes), Case.Text) << Case.Text;
}

TEST(Text, TrimsReplacesAndCompares)
{
    EXPECT_EQ(Text::Trim(" \t\r\n a b \x01"), "a b");
    EXPECT_EQ(Text::Trim(" \n"), "");
    EXPECT_EQ(Text::Replace("a&amp;b&c&", "&", "&amp;"), "a&amp;amp;b&amp;c&amp;");
    EXPECT_EQ(Text::Replace("aaa", "aa", "b"), "ba");
    EXPECT_EQ(Text::Replace("abc", "", "x"), "abc");
    EXPECT_TRUE(Text::Same("AbC[", "aBc["));
    EXPECT_FALSE(Text::Same("@[", "`{"));
    EXPECT_FALSE(Text::Same("ab", "abc"));
    EXPECT_TRUE(Text::StartsWithSame("HEX(2)", "hex"));
    EXPECT_FALSE(Text::StartsWithSame("he", "hex"));
    EXPECT_EQ(Text::EditDistance("Forse", "Force"), 1U);
    EXPECT_EQ(Text::EditDistance("kitten", "sitting"), 3U);
    EXPECT_EQ(Text::EditDistance("", "abc"), 3U);
}
