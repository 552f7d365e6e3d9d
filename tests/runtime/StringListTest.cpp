#include "host/QXStringList.h"
#include "host/QXUtilities.h"

#include <gtest/gtest.h>

namespace
{
using TItems = std::vector<std::string>;

TEST(StringList, CommaTextBothWays)
{
    const std::pair<TItems, const char*> Cases[] = {
        {{}, ""},
        {{"a", "b"}, "a,b"},
        {{"a b", "c"}, "\"a b\",c"},
        {{"a,b", "say \"x\""}, "\"a,b\",\"say \"\"x\"\"\""},
        {{"", "a", ""}, "\"\",a,\"\""},
        {{"tab\there"}, "\"tab\there\""},
        {{"C:\\x;y"}, "C:\\x;y"},
    };
    for (const auto& [Items, Text] : Cases)
    {
        EXPECT_EQ(TStringList(Items).CommaText(), Text);
        TStringList List{"old"};
        List.SetCommaText(Text);
        EXPECT_EQ(List.Items(), Items) << Text;
    }
}

TEST(StringList, ReadsDelimitedTextsOfOthers)
{
    struct TCase
    {
        const char* Text;
        char Delimiter;
        bool Strict;
        TItems Items;
    };
    const TCase Cases[] = {
        {" a  b , c,", ',', false, {"a", "b", "c", ""}},
        {",a,,b", ',', false, {"", "a", "", "b"}},
        {"\"a b\"c \"d", ',', false, {"a b", "c", "d"}},
        {"a, b=c , \"d,e\",", ',', true, {"a", " b=c ", " \"d", "e\"", ""}},
        {"a b;\"c;d\"", ';', true, {"a b", "c;d"}},
        {"a, Version=1 x", ',', false, {"a", "Version=1", "x"}},
    };
    for (const TCase& Case : Cases)
    {
        TStringList List;
        List.SetDelimitedText(Case.Text, Case.Delimiter, Case.Strict);
        EXPECT_EQ(List.Items(), Case.Items) << Case.Text;
    }
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
    EXPECT_EQ(DoubleQuoteString("a", true), "\"a\"");
    EXPECT_EQ(DoubleQuoteString("", true), "\"\"");
    EXPECT_EQ(DoubleQuoteString("a", false), "a");
    EXPECT_EQ(DoubleQuoteString("a b", false), "\"a b\"");
    EXPECT_EQ(DoubleQuoteString("\"a\"", true), "\"a\"");
    EXPECT_EQ(DoubleQuoteString("\"", true), "\"\"\"");
    EXPECT_EQ(StripQuotes("\"a\""), "a");
    EXPECT_EQ(StripQuotes("'a'"), "a");
    EXPECT_EQ(StripQuotes("'a\""), "'a\"");
    EXPECT_EQ(StripQuotes("\""), "\"");
    EXPECT_EQ(StripQuotes("\"a"), "\"a");
}
} // namespace
