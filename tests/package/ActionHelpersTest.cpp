#include "package/plugin/QXActionHelpers.h"

#include "package/sdktools/QXDotNetGACAction.h"
#include "tests/package/PackageTest.h"

namespace
{
enum class TLevel { Quiet, Normal, Loud };
constexpr auto QXElements(TLevel)
{
    return std::array<std::string_view, 3>{"Quiet", "Normal", "Loud"};
}

/// Findings as lines LABEL: MESSAGE.
struct TFindings final : IQXActionValidationError
{
    void AddError(std::string_view Label, std::string_view Message) override
    {
        Lines.append(Label).append(": ").append(Message).append("\n");
    }
    std::string Lines;
};
} // namespace

TEST(ActionHelpers, AddWhatExpandsToSomething)
{
    TPackageHost Host;
    Host.Variables.SetProjectVariables({{"Empty", ""}, {"Path", "a b"}});
    TGACListAction Action;
    const auto Connection = Host.Connect(Action);
    const auto Builder = CreateCommandLineBuilder();
    Builder->SetSwitchSeparator("");
    EXPECT_TRUE(AddExpanded(Action, *Builder, "/a:", "Label", "%Path%"));
    EXPECT_TRUE(AddExpanded(Action, *Builder, "/q:", "Label", "c", amQuoted));
    EXPECT_TRUE(AddOptional(Action, *Builder, "/b:", "Label", "%Empty%"));
    EXPECT_TRUE(AddOptional(Action, *Builder, "", "Label", "%Path%", amPlain));
    EXPECT_TRUE(AddFreeText(Action, *Builder, "Label", "%Path%\r\n"));
    EXPECT_TRUE(AddFreeText(Action, *Builder, "Label", "\n"));
    AddFlags(*Builder, {{true, "/x"}, {false, "/y"}, {true, "/z"}});
    constexpr std::string_view Levels[] = {"-q", "", "-v"};
    AddFlags(*Builder, {{true, ElementText(Levels, TLevel::Loud)}});
    EXPECT_EQ(Builder->GetCommandLineText(), "/a:\"a b\" /q:\"c\" a b a b /x /z -v");

    EXPECT_FALSE(AddExpanded(Action, *Builder, "/a:", "Required", "%Empty%"));
    EXPECT_FALSE(AddOptional(Action, *Builder, "/a:", "Optional", "%NoSuchVariable%"));
    EXPECT_EQ(ExpandStartDir(Action, "%Empty%"), "");
    EXPECT_EQ(ExpandStartDir(Action, "%Path%"), "a b");
    std::string Labels;
    for (const auto& Error : Host.Log.ExpansionErrors)
        Labels += Error.Label + ';';
    EXPECT_EQ(Labels, "Required;Optional;Working Directory;");
    EXPECT_EQ(Host.Log.Messages, std::vector<std::string>{"Warning: working directory is blank"});
}

TEST(ActionHelpers, EveryRequirementIsReported)
{
    TFindings Findings;
    EXPECT_FALSE(Require(Findings, {{std::string(), "A", "a"}, {true, "B", "b"}, {false, "C", "c"}}));
    EXPECT_FALSE(RequireTool(Findings, "", {"Options", "not set"}, {"Options", "not found"}));
    EXPECT_FALSE(RequireTool(Findings, "/no such tool", {"Options", "not set"}, {"Options", "not found"}));
    EXPECT_TRUE(RequireTool(Findings, "/bin/sh", {"Options", "not set"}, {"Options", "not found"}));
    EXPECT_EQ(Findings.Lines, "A: a\nC: c\nOptions: not set\nOptions: not found\n");
    EXPECT_EQ(ExitCodeText(0) + ExitCodeText(-1), "$00000000$FFFFFFFF");
}
