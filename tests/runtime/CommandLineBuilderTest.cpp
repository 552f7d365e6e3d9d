#include "host/QXCommandLineBuilder.h"
#include "host/QXProcess.h"
#include "platform/CommandLines.h"
#include "platform/Text.h"
#include "tests/DataFile.h"

#include <gtest/gtest.h>

namespace
{
std::string AddRow(ICommandLineBuilder& Builder, const TColumns& Row)
{
    Builder.SetSwitchSeparator(Row[0]);
    Builder.AddArgument(Row[1], Row[2], Row[3] == "plain" ? amPlain : Row[3] == "quoted" ? amQuoted : amNormal);
    return Builder.GetCommandLineText();
}

TEST(CommandLineBuilder, BringsToTheToolWhatWasMeant)
{
    const auto All = CreateCommandLineBuilder();
    TColumns Expected;
    CheckTable(
        "commandlines", "builder",
        [&](const TColumns& Row) {
            const auto Builder = CreateCommandLineBuilder();
            EXPECT_EQ(AddRow(*Builder, Row), Row[4]);
            (void)AddRow(*All, Row);
            TColumns Received = CommandLines::Split(Row[4]);
            for (const std::string& Argument : Received)
                Expected.push_back(Texts::Replace(Argument, "\\", "\\\\"));
            return Received;
        },
        5);
    const auto Process = CreateQXProcess();
    Process->SetExecutable(QUEXLEY_FAKES_DIR "/echo_arguments");
    Process->SetArguments(All->GetCommandLineText());
    TStringList Lines;
    EXPECT_EQ(Process->RunCaptured(Lines), 0);
    EXPECT_EQ(Lines.Items(), Expected) << "as a real tool receives them";
}

TEST(CommandLineBuilder, SeparatesArguments)
{
    const auto Builder = CreateCommandLineBuilder();
    EXPECT_EQ(Builder->GetCommandLineText(), "");
    const IArgument& First = Builder->AddArgument("/a", "1");
    Builder->AddArgument("", "");
    Builder->SetSwitchSeparator("=");
    Builder->AddArgument("/b", "2");
    EXPECT_EQ(Builder->GetCommandLineText(), "/a 1 /b=2");
    Builder->SetArgumentSeparator("\n");
    EXPECT_EQ(Builder->GetCommandLineText(), "/a 1\n/b=2");
    EXPECT_EQ(First.GetText(), "/a 1");
}
} // namespace
