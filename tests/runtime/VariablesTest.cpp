#include "runtime/Variables.h"
#include "runtime/ActionTest.h"
#include "tests/DataFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace
{
TVariables Sample()
{
    TVariables Variables;
    Variables.SetOverrides({{"Config", "Debug"}, {"config", "Release"}});
    Variables.SetProjectVariables({{"CONFIG", "hidden"},
                                   {"OutDir", "%ProjectDir%/bin/%Config%"},
                                   {"a.b", "dotted"},
                                   {"Self", "x%self%"},
                                   {"Ping", "%Pong%"},
                                   {"Pong", "%Ping%"},
                                   {"Lost", "%Nowhere%"},
                                   {"Rate", "100%%"},
                                   {"Empty", ""}});
    Variables.SetHostVariables({{"ProjectDir", "/p/%Config%"}, {"OutDir", "hidden"}});
    return Variables;
}

TEST(Variables, ReplacesNamesAndLeavesOtherPercentSigns)
{
    ::setenv("QuexleyTestVariable", "of %Config%", 1);
    CheckTable("texts", "expand", [](const TColumns& Row) {
        const TExpansion Expansion = Sample().Expand(Row[0]);
        EXPECT_TRUE(Expansion.Succeeded) << Expansion.Reason;
        return TColumns{Expansion.Text};
    });
}

TEST(Variables, NamesTheVariableThatFails)
{
    CheckTable("texts", "failed expansion", [](const TColumns& Row) {
        const TExpansion Expansion = Sample().Expand(Row[0]);
        EXPECT_FALSE(Expansion.Succeeded);
        return TColumns{Expansion.Reason};
    });
}

TEST(Variables, DecideTests)
{
    TVariables Variables;
    Variables.SetProjectVariables({{"A", "x"}, {"B", "b c"}, {"No", "NO"}, {"Empty", ""}, {"Loop", "%Loop%"}});
    CheckTable("conditions", "conditions", [&](const TColumns& Row) {
        const TActionTest Found = TestAction(Row[0], Variables);
        return TColumns{!Found.Reason.empty() ? Found.Reason : Found.Holds ? "yes" : "no"};
    });
}

TEST(Variables, SurvivesLongChainsAndExponentialGrowth)
{
    TVariables::TPairs Chain, Bomb, Hollow;
    for (int Index = 0; Index < 10000; ++Index)
        Chain.emplace_back("v" + std::to_string(Index), "%v" + std::to_string(Index + 1) + "%");
    Chain.emplace_back("v10000", "end");
    for (int Index = 0; Index < 64; ++Index)
    {
        const std::string Next = "%v" + std::to_string(Index + 1) + "%";
        Bomb.emplace_back("v" + std::to_string(Index), Next + Next);
    }
    Hollow = Bomb;
    Bomb.emplace_back("v64", "x");
    Hollow.emplace_back("v64", "");

    TVariables Variables;
    Variables.SetProjectVariables(Chain);
    EXPECT_EQ(Variables.Expand("%v0%").Text, "end");
    Variables.SetProjectVariables(Bomb);
    EXPECT_NE(Variables.Expand("%v0%").Reason.find("longer than 16 MiB"), std::string::npos);
    Variables.SetProjectVariables(Hollow);
    EXPECT_TRUE(Variables.Expand("%v0%").Succeeded);
}
} // namespace
