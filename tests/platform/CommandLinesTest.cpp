#include "platform/CommandLines.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

#include <random>

using TArguments = std::vector<std::string>;

TEST(CommandLines, SplitFollowsTheMicrosoftRunTime)
{
    CheckTable("commandlines", "split", [](const TColumns& Row) { return CommandLines::Split(Row[0]); });
}

TEST(CommandLines, LinesBecomeOne)
{
    CheckTable("commandlines", "lines", [](const TColumns& Row) { return TColumns{CommandLines::JoinLines(Row[0])}; });
}

TEST(CommandLines, QuoteQuotesOnlyWhereNeeded)
{
    CheckTable(
        "commandlines", "quote",
        [](const TColumns& Row) { return TColumns{CommandLines::Quote(Row[0], Row[1] == "yes")}; }, 2);
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
