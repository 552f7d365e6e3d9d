#include "platform/CommandLines.h"

#include "gtest/gtest.h"

#include <random>

using TArguments = std::vector<std::string>;

TEST(CommandLines, SplitFollowsTheMicrosoftRunTime)
{
    const struct
    {
        std::string Text;
        TArguments Arguments;
    } Cases[] = {
        {"", {}},
        {" \t ", {}},
        {" a \t b\nc ", {"a", "b\nc"}},
        {R"("")", {""}},
        {R"(a "" b)", {"a", "", "b"}},
        {R"("a b" c)", {"a b", "c"}},
        {R"(/out:"a b"\c)", {R"(/out:a b\c)"}},
        {R"(a\\b \\s\h\)", {R"(a\\b)", R"(\\s\h\)"}},
        {R"(a\"b)", {R"(a"b)"}},
        {R"("a\\" b)", {R"(a\)", "b"}},
        {R"("a\\\" b")", {R"(a\" b)"}},
        {R"("a""b c")", {R"(a"b c)"}},
        {R"("a"" b)", {R"(a" b)"}},
        {R"("a\\"" b")", {R"(a\" b)"}},
        {R"(a""b c)", {"ab", "c"}},
        {R"("""a""" b)", {R"("a")", "b"}},
        {R"("a b)", {"a b"}},
        {R"("C:\dir\" x)", {R"(C:\dir" x)"}},
        {R"(\)", {R"(\)"}},
    };
    for (const auto& Case : Cases)
        EXPECT_EQ(CommandLines::Split(Case.Text), Case.Arguments) << Case.Text;
}

TEST(CommandLines, QuoteQuotesOnlyWhereNeeded)
{
    EXPECT_EQ(CommandLines::Quote(R"(a\b\)"), R"(a\b\)");
    EXPECT_EQ(CommandLines::Quote(R"(a\b\)", true), R"("a\b\\")");
    EXPECT_EQ(CommandLines::Quote(""), R"("")");
    EXPECT_EQ(CommandLines::Quote(R"(a b\"c)"), R"("a b\\\"c")");
}

TEST(CommandLines, SplitGivesBackWhatQuoteMade)
{
    constexpr std::string_view Alphabet = "ab \t\n\\\\\\\"\"'";
    std::mt19937 Random(4711);
    for (int Round = 0; Round < 5000; ++Round)
    {
        TArguments Arguments(Random() % 4);
        std::string Line;
        for (std::string& Argument : Arguments)
        {
            for (auto Length = Random() % 8; Length > 0; --Length)
                Argument += Alphabet[Random() % Alphabet.size()];
            Line += CommandLines::Quote(Argument, Random() % 2 == 0) + ' ';
        }
        ASSERT_EQ(CommandLines::Split(Line), Arguments) << Line;
    }
}
