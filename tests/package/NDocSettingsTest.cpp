#include "package/documentation/QXNDocAction.h"
#include "runtime/Project.h"
#include "tests/package/PackageTest.h"

TEST(NDocSettings, OfAProjectKeepTheirLinesAndGainTheMissingOnes)
{
    TPackageHost Host;
    const std::string Text = "[[action]]\ntype = \"TQXNDocAction\"\nXMLProps = [\"outputfile=a.xml\", \"Own=1\"]\n";
    const TProject Project = TProject::Parse("p.toml", Text);
    const auto* Action = dynamic_cast<const TQXNDocAction*>(Project.Actions[0].Object.get());
    ASSERT_NE(Action, nullptr);
    const TStringList& Settings = Action->XMLProps;
    ASSERT_EQ(Settings.Count(), 40U);
    EXPECT_EQ(Settings[0] + ' ' + Settings[1] + ' ' + Settings[2], "outputfile=a.xml Own=1 ShowMissingSummaries=");
    EXPECT_EQ(Settings[39], "CleanIntermediates=");
    EXPECT_EQ(Project.ToText(), Text);
}
