#include "runtime/Variables.h"

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
    const std::pair<const char*, const char*> Cases[] = {
        {"", ""},
        {"plain", "plain"},
        {"%Config%", "Release"},
        {"%OUTDIR%;%a.b%", "/p/%Config%/bin/Release;dotted"},
        {"%%Config%%", "%Config%"},
        {"50% of %Config%", "50% of Release"},
        {"%1%Config%", "%1Release"},
        {"100%", "100%"},
        {"%Config", "%Config"},
        {"%Con fig%", "%Con fig%"},
        {"%%%Config%", "%Release"},
        {"%Rate%", "100%"},
        {"[%Empty%]", "[]"},
        {"%quexleytestvariable%", "of %Config%"},
    };
    for (const auto& [Text, Expected] : Cases)
    {
        const TExpansion Expansion = Sample().Expand(Text);
        EXPECT_TRUE(Expansion.Succeeded) << Text << ": " << Expansion.Reason;
        EXPECT_EQ(Expansion.Text, Expected) << Text;
    }
}

TEST(Variables, NamesTheVariableThatFails)
{
    const std::pair<const char*, const char*> Cases[] = {
        {"a %Nope% b", "unknown variable \"Nope\""},
        {"%Lost%", "unknown variable \"Nowhere\""},
        {"%Self%", "the variable \"self\" leads back to itself"},
        {"%Ping%", "the variable \"Ping\" leads back to itself"},
    };
    for (const auto& [Text, Reason] : Cases)
    {
        const TExpansion Expansion = Sample().Expand(Text);
        EXPECT_FALSE(Expansion.Succeeded) << Text;
        EXPECT_EQ(Expansion.Reason, Reason);
    }
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
