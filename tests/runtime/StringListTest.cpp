#include "host/QXStringList.h"
#include "host/QXUtilities.h"
#include "tests/DataFile.h"

#include <gtest/gtest.h>

namespace
{
using TItems = std::vector<std::string>;

TEST(StringList, CommaTextBothWays)
{
    CheckTable("texts", "comma text", [](const TColumns& Row) {
        TStringList List{"old"};
        List.SetCommaText(Row[0]);
        EXPECT_EQ(List.CommaText(), Row[0]);
        return List.Items();
    });
}

TEST(StringList, ReadsDelimitedTextsOfOthers)
{
    CheckTable(
        "texts", "delimited text",
        [](const TColumns& Row) {
            TStringList List;
            List.SetDelimitedText(Row[0], Row[1][0], Row[2] == "yes");
            return List.Items();
        },
        3);
}

TEST(StringList, LinesEndByAnyLineEnd)
{
    TStringList List;
    List.SetText("a\nb\r\n\rc");
    EXPECT_EQ(List.Items(), (TItems{"a", "b", "", "c"}));
    EXPECT_EQ(List.Text(), "a\r\nb\r\n\r\nc\r\n");
    List.SetText("a\r\n");
    EXPECT_EQ(List.Items(), TItems{"a"});
}

TEST(StringList, NamesAndValues)
{
    TStringList List{"plain", "Name=a=b", "=x"};
    EXPECT_EQ(List.Name(0) + "|" + List.ValueAt(0), "|");
    EXPECT_EQ(List.Value("NAME"), "a=b");
    EXPECT_EQ(List.IndexOfName("plain"), std::nullopt);
    List.SetValue("name", "");
    List.SetValue("New", "1");
    EXPECT_EQ(List.Items(), (TItems{"plain", "name=", "=x", "New=1"}));
}

TEST(StringTokeniser, ReadsALinePieceByPiece)
{
    const auto Line = CreateStringTokeniser("");
    EXPECT_EQ(Line->Current(), '\0');
    EXPECT_EQ(Line->Next(), '\0');
    Line->SetText("  [assembly: Title(\"x\")] ");
    Line->SkipWhiteSpace();
    EXPECT_EQ(Line->Current(), '[');
    EXPECT_EQ(Line->Next(), 'a');
    EXPECT_EQ(Line->ReadUntilChar(':'), "assembly");
    EXPECT_EQ(Line->Current(), ':');
    EXPECT_EQ(Line->ReadUntilChar(':'), "");
    Line->Next();
    EXPECT_EQ(Line->ReadUntilAny(" ("), "Title");
    EXPECT_EQ(Line->ReadRest(), "(\"x\")] ");
    EXPECT_EQ(Line->ReadUntilChar('x'), "");
}

TEST(Utilities, QuotesTexts)
{
    CheckTable(
        "texts", "double quotes",
        [](const TColumns& Row) { return TColumns{DoubleQuoteString(Row[0], Row[1] == "yes")}; }, 2);
    CheckTable("texts", "strip quotes", [](const TColumns& Row) { return TColumns{StripQuotes(Row[0])}; });
}
} // namespace
