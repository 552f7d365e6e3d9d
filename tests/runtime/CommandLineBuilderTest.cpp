#include "host/QXCommandLineBuilder.h"
#include "host/QXProcess.h"
#include "platform/CommandLines.h"
#include "platform/Text.h"

#include <gtest/gtest.h>

namespace
{
using TArguments = std::vector<std::string>;

struct TCase
{
    const char* Separator;
    const char* Switch;
    const char* Value;
    TQXArgumentMode Mode;
    const char* Text;
    TArguments Received;
};

const TCase Cases[] = {
    {" ", "/i", "a.dll", amNormal, "/i a.dll", {"/i", "a.dll"}},
    {" ", "/i", "a b.dll", amNormal, "/i \"a b.dll\"", {"/i", "a b.dll"}},
    {" ", "/i", "a\tb", amNormal, "/i \"a\tb\"", {"/i", "a\tb"}},
    {" ", "/i", "", amNormal, "/i", {"/i"}},
    {" ", "", "a b", amNormal, "\"a b\"", {"a b"}},
    {"", "/out:", "a b.dll", amNormal, "/out:\"a b.dll\"", {"/out:a b.dll"}},
    {"", "/out:", "", amQuoted, "/out:", {"/out:"}},
    {":", "/out", "C:\\a b\\", amNormal, "/out:\"C:\\a b\\\\\"", {"/out:C:\\a b\\"}},
    {"", "/out:", "C:\\a\\", amNormal, "/out:C:\\a\\", {"/out:C:\\a\\"}},
    {"", "/out:", "C:\\a\\", amQuoted, "/out:\"C:\\a\\\\\"", {"/out:C:\\a\\"}},
    {" ", "/i", "a b", amPlain, "/i a b", {"/i", "a", "b"}},
    // A switch alone may be a text of the user's, of several arguments.
    {" ", "@\"C:\\x y\\r.rsp\"", "", amNormal, "@\"C:\\x y\\r.rsp\"", {"@C:\\x y\\r.rsp"}},
    {" ", "-T a -p", "", amNormal, "-T a -p", {"-T", "a", "-p"}},
    // Quoted by the caller.
    {" ", "/i", "\"a b\"", amQuoted, "/i \"a b\"", {"/i", "a b"}},
    {" ", "", "\"a\" \"b c\"", amNormal, "\"a\" \"b c\"", {"a", "b c"}},
    {" ", "", "x=\"a b\";y", amNormal, "x=\"a b\";y", {"x=a b;y"}},
    {" ", "/d", "\"C:\\a b\\\"", amNormal, "/d \"C:\\a b\\\\\"", {"/d", "C:\\a b\\"}},
    {" ", "/d", "\"C:\\a b\\\\\"", amNormal, "/d \"C:\\a b\\\\\"", {"/d", "C:\\a b\\"}},
    {" ", "/d", "\"\"", amNormal, "/d \"\"", {"/d", ""}},
    // Quotes that are part of the text.
    {" ", "/d", "5\" disk", amNormal, "/d \"5\\\" disk\"", {"/d", "5\" disk"}},
    {" ", "/d", "a\"b", amNormal, "/d \"a\\\"b\"", {"/d", "a\"b"}},
    {" ", "/d", "\"", amQuoted, "/d \"\\\"\"", {"/d", "\""}},
    {" ", "/d", "say \"a b\" twice", amNormal, "/d \"say \\\"a b\\\" twice\"", {"/d", "say \"a b\" twice"}},
    {" ", "/d", "a\\\"b c", amNormal, "/d \"a\\\\\\\"b c\"", {"/d", "a\\\"b c"}},
};

TEST(CommandLineBuilder, BringsToTheToolWhatWasMeant)
{
    for (const TCase& Case : Cases)
    {
        SCOPED_TRACE(std::string(Case.Switch) + " | " + Case.Value);
        const auto Builder = CreateCommandLineBuilder();
        Builder->SetSwitchSeparator(Case.Separator);
        Builder->AddArgument(Case.Switch, Case.Value, Case.Mode);
        EXPECT_EQ(Builder->GetCommandLineText(), Case.Text);
        EXPECT_EQ(CommandLines::Split(Builder->GetCommandLineText()), Case.Received);
    }
}

TEST(CommandLineBuilder, ArgumentsArriveInARealTool)
{
    const auto Process = CreateQXProcess();
    const auto Builder = CreateCommandLineBuilder();
    TArguments Expected;
    for (const TCase& Case : Cases)
    {
        Builder->SetSwitchSeparator(Case.Separator);
        Builder->AddArgument(Case.Switch, Case.Value, Case.Mode);
        for (const std::string& Argument : Case.Received)
            Expected.push_back(Text::Replace(Argument, "\\", "\\\\"));
    }
    Process->SetExecutable(QUEXLEY_FAKES_DIR "/echo_arguments");
    Process->SetArguments(Builder->GetCommandLineText());
    TStringList Lines;
    EXPECT_EQ(Process->RunCaptured(Lines), 0);
    EXPECT_EQ(Lines.Items(), Expected);
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
