// How the tools of a project load end, and what they leave then. The names of resources are in data/resources.txt.
#include "tests/package/PackageTest.h"

#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/Text.h"

namespace
{
class TResourceHost : public TPackageHost
{
public:
    TResourceHost() { UseStandInTools(); }

    /// Loads a project with one embedded file and gives the messages behind the heading, with $DIR for the folder.
    std::vector<std::string> Load(const std::string& File, bool Succeeds = false)
    {
        Folder.Write(
            "a.csproj",
            "<V><CSHARP SchemaVersion=\"2.0\"><Build><Settings AssemblyName=\"a\"><Config Name=\"Debug\" "
            "OutputPath=\"bin\\\"/></Settings></Build><Files><Include><File BuildAction=\"EmbeddedResource\" " +
                File + "/><File RelPath=\"a.cs\" BuildAction=\"Compile\"/></Include></Files></CSHARP></V>");
        const auto Action = Create<TQXManagedCompilerAction>("TQXCSProjCompilerAction");
        Action->ProjectFile = "a.csproj";
        Action->ConfigName = "Debug";
        const auto Connection = Connect(*Action);
        EXPECT_EQ(Action->GetCommandLine(*CreateCommandLineBuilder()), Succeeds) << File;
        EXPECT_EQ(Folder.Exists("qxresp.rsp"), Succeeds) << File;
        std::vector<std::string> Messages;
        for (const std::string& Message : Log.Messages)
            Messages.push_back(Text::Replace(Message, Folder.Path(), "$DIR"));
        EXPECT_EQ(Messages.at(0), "Resolving References....");
        Messages.erase(Messages.begin());
        return Messages;
    }
};

using TMessages = std::vector<std::string>;
} // namespace

TEST(Resources, AToolThatFailsEndsTheLoad)
{
    struct TRow
    {
        const char* Content;
        TMessages Messages; ///< of either compiler, "..." for what differs
        int Seconds;
    };
    const TRow Rows[] = {
        {"fail", {"3"}, 0},
        {"crash", {"134", "The tool was ended by the signal SIGABRT"}, 0},
        {"hang", {"124", "The tool was ended after its time limit of 1 seconds"}, 1},
    };
    for (const TRow& Row : Rows)
    {
        TMessages Expected(Row.Messages.begin() + 1, Row.Messages.end());
        TMessages Licenses = Expected;
        Licenses.insert(Licenses.end(), {"Error compiling licenses file : $DIR/a.licx"});
        Expected.insert(Expected.end(),
                        {"ResGen returned : " + Row.Messages[0], "Error compiling resource : $DIR/a.resx"});
        TResourceHost Host;
        Host.Settings.TimeLimit = std::chrono::seconds(Row.Seconds);
        Host.Folder.Write("a.resx", Row.Content);
        EXPECT_EQ(Host.Load("RelPath=\"a.resx\""), Expected);

        Host.Log.Messages.clear();
        Host.Folder.Write("a.licx", Row.Content);
        TMessages Actual = Host.Load("RelPath=\"a.licx\"");
        Actual.erase(Actual.begin(), Actual.begin() + 6); // those of the file's only line
        EXPECT_EQ(Actual, Licenses);
        EXPECT_FALSE(Host.Folder.Exists("bin/lc.exe"));
    }
}

TEST(Resources, AToolThatDoesNotStartIsToldWithAllThatItWasGiven)
{
    TResourceHost Host;
    Host.Folder.Write("a.resx");
    std::filesystem::remove(Host.Tools + "/resgen.exe");
    Host.Folder.Write("tools/resgen.exe");
    const TMessages Messages = Host.Load("RelPath=\"A.RESX\"");
    ASSERT_EQ(Messages.size(), 5U);
    EXPECT_TRUE(Messages[0].starts_with("Error executing ResGen : $DIR/tools/resgen.exe")) << Messages[0];
    EXPECT_EQ(TMessages(Messages.begin() + 1, Messages.end()),
              (TMessages{"Executable : [$DIR/tools/resgen.exe]", "Starting Directory : [$DIR/]",
                         "Parameters : [\"$DIR/a.resx\" \"$DIR/obj/Debug/a.resources\"]",
                         "Error compiling resource : $DIR/a.resx"}));

    Host.Log.Messages.clear();
    Host.Folder.Write("a.licx");
    std::filesystem::remove(Host.Tools + "/lc.exe");
    const TMessages Licenses = Host.Load("RelPath=\"a.licx\"");
    ASSERT_EQ(Licenses.size(), 2U);
    EXPECT_TRUE(Licenses[1].starts_with("Error compiling licenses file : $DIR/bin/lc.exe")) << Licenses[1];

    Host.Log.Messages.clear();
    Host.Folder.Write("tools/lc.exe", "no program");
    EXPECT_EQ(Host.Load("RelPath=\"a.licx\"").size(), 2U);
    EXPECT_FALSE(Host.Folder.Exists("bin/lc.exe"));
}

TEST(Resources, AnOldCopyOfTheLicenseCompilerGoesButNeverTheToolItself)
{
    TResourceHost Host;
    Host.Folder.Write("a.licx");
    Host.Folder.Write("bin/LC.exe", "old");
    EXPECT_EQ(Host.Load("RelPath=\"a.licx\"", true).size(), 2U);
    EXPECT_FALSE(Host.Folder.Exists("bin/LC.exe"));
    EXPECT_FALSE(Host.Folder.Exists("bin/lc.exe"));

    Host.SetDotNetVersions({{"v2.0", Host.Folder.Path() + "/bin", Host.Folder.Path() + "/bin"}});
    for (const char* Tool : {"lc.exe", "resgen.exe"})
        std::filesystem::copy_file(QUEXLEY_FAKES_DIR "/sdk_tool", Host.Folder.Path() + "/bin/" + Tool);
    Host.Log.Messages.clear();
    EXPECT_EQ(Host.Load("RelPath=\"a.licx\"", true).size(), 2U);
    EXPECT_TRUE(Host.Folder.Exists("bin/lc.exe"));
}

TEST(Resources, WhatAFormNeeds)
{
    TResourceHost Host;
    Host.Folder.Write("Forms/a.resx");
    EXPECT_EQ(
        Host.Load("RelPath=\"forms\\a.resx\" DependentUpon=\"b.cs\""),
        (TMessages{"File : $DIR/Forms/b.cs - does not exist", "Unable to determine namespace for resource file"}));
    std::filesystem::remove_all("obj");
    Host.Folder.Write("obj");
    Host.Log.Messages.clear();
    EXPECT_EQ(Host.Load("RelPath=\"forms\\a.resx\" DependentUpon=\"b.cs\""),
              TMessages{"Unable to create output directory : $DIR/obj/Debug/"});
    EXPECT_TRUE(Host.Log.ProcessStarts.empty());
}

TEST(Resources, ACompactProjectMustNameItsCompiler)
{
    for (const char* Compiler : {"", " \t"})
    {
        TResourceHost Host;
        Host.Folder.Write("a.resx");
        Host.Folder.Write(
            "a.vbdproj", "<V><EVisualBasic SchemaVersion=\"1.0\"><Build><Settings><Config Name=\"Debug\"/></Settings>"
                         "</Build><Files><Include><File RelPath=\"a.resx\" BuildAction=\"EmbeddedResource\"/></Include>"
                         "</Files></EVisualBasic></V>");
        const auto Action = Host.Create<TQXManagedCompilerAction>("TQXVBProjCompilerAction");
        Action->ProjectFile = "a.vbdproj";
        Action->ConfigName = "Debug";
        Action->CFResGen = Compiler;
        const auto Connection = Host.Connect(*Action);
        EXPECT_FALSE(Action->GetCommandLine(*CreateCommandLineBuilder()));
        EXPECT_EQ(Host.Log.Messages.back(), "Compact Framework resource compiler not specified!");
    }
}

TEST(Resources, ADryRunOnlyShowsTheTools)
{
    TResourceHost Host;
    Host.Settings.DryRun = true;
    Host.Folder.Write("a.resx", "fail");
    EXPECT_EQ(Host.Load("RelPath=\"a.resx\"", true).size(), 1U);
    ASSERT_EQ(Host.Log.ProcessStarts.size(), 1U);
    EXPECT_TRUE(Host.Log.ProcessStarts[0].DryRun);
    EXPECT_FALSE(Host.Folder.Exists("obj/Debug/a.resources"));
}
