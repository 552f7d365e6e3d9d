#include "tests/DataFile.h"
#include "tests/package/PackageTest.h"

#include "package/compiler/QXBorlandCSBuilderProjCompilerAction.h"
#include "package/compiler/QXCSProjCompilerAction.h"
#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXJSharpProjCompilerAction.h"
#include "package/compiler/QXProjectLoader.h"
#include "package/compiler/QXVBProjCompilerAction.h"

#include <map>

namespace
{
void WriteProject(TPackageHost& Host, TQXCSProjCompilerAction& Action, const std::string& References)
{
    Action.ProjectFile = Host.Folder.Write("a.csproj", "<V><CSHARP SchemaVersion='2.0'><Build><Settings><Config "
                                                       "Name='Debug'/></Settings><References>" +
                                                           References +
                                                           "</References></Build><Files><Include><File RelPath='a.cs' "
                                                           "BuildAction='Compile'/></Include></Files></CSHARP></V>");
    Action.ConfigName = "Debug";
}
} // namespace

#include <filesystem>

TEST(Compiler, TheResponseFileStaysUnlessTheActionSaysOtherwise)
{
    for (const bool Keep : {true, false})
        for (const bool Success : {true, false})
        {
            TPackageHost Host;
            TQXCSharpCompilerAction Action;
            Action.ProjectDir = Host.Folder.Path();
            Action.Files = "a.cs";
            Action.KeepResponseFile = Keep;
            EXPECT_EQ(Host.CommandLine(Action), "@\"" + Host.Folder.Path() + "/qxresp.rsp\"");
            EXPECT_EQ(Host.Folder.Read("qxresp.rsp"),
                      "/checked-\r\n/warn:4\r\n/target:library\r\n/debug:full\r\n\"a.cs\"\r\n");
            EXPECT_EQ(std::filesystem::status(Host.Folder / "qxresp.rsp").permissions(),
                      std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);

            const auto Connection = Host.Connect(Action);
            EXPECT_EQ(Action.GetStartingDir("/tools/csc.exe"), Host.Folder.Path() + "/");
            Host.Log.Messages.clear();
            if (Success)
                Action.OnSuccess(0);
            else
                Action.OnFailure(1);
            EXPECT_EQ(Host.Folder.Exists("qxresp.rsp"), Keep);
            EXPECT_EQ(Host.Log.Messages,
                      Success ? (std::vector<std::string>{".", "Project Compiled OK."}) : std::vector<std::string>{});
        }
}

TEST(Compiler, ASecondValueNeverStandsAlone)
{
    const TQXCSharpCompilerAction Action;
    CheckTable(
        "compiler", "option with a second value",
        [&](const TColumns& Row) {
            TQXResponseFile File(Action, "/");
            EXPECT_TRUE(File.AddOption("/s", "Label", Row[0], Row[1], "|"));
            return File.Lines().Items();
        },
        2);
}

TEST(Compiler, ConfigurationNamesBecomeFolders)
{
    TQXVBProjCompilerAction Normal;
    TQXVBProjCompilerAction Compact;
    Compact.ProjectFile = "a.VBDProj";
    CheckTable("compiler", "configuration folder", [&](const TColumns& Row) {
        return TColumns{Normal.UnMangleConfigName(Row[0]), Compact.UnMangleConfigName(Row[0])};
    });
}

TEST(Compiler, FindsTheClassThatNamesAResource)
{
    TPackageHost Host;
    TQXCSProjCompilerAction CSharp;
    TQXVBProjCompilerAction VB;
    TQXJSProjCompilerAction JSharp;
    const std::map<std::string, const TQXProjectMapping*> Actions = {{"c", &CSharp}, {"v", &VB}, {"j", &JSharp}};
    std::string Name;
    CheckTable(
        "compiler", "class of a resource",
        [&](const TColumns& Row) {
            VB.RootNameSpace = CSharp.RootNameSpace = JSharp.JSRootNamespace = Row[2];
            Name = "old";
            const bool Found = Actions.at(Row[0])->DetectNameSpace(Host.Folder.Write("source", Row[1]), Name);
            return TColumns{YesOrNo(Found), Name};
        },
        3);
    EXPECT_THROW(static_cast<void>(TQXBorlandCSBuilderProjCompilerAction().DetectNameSpace("missing", Name)),
                 std::runtime_error);
}

TEST(Compiler, ListsTheConfigurationsOfAProject)
{
    TPackageHost Host;
    const TQXCSProjCompilerAction Action;
    TStringList List;
    CheckTable(
        "compiler", "configurations",
        [&](const TColumns& Row) {
            List = {"old"};
            const bool Read = Action.LoadConfigListFromProject(Host.Folder.Write(Row[0], Row[1]), List);
            TColumns Result = List.Items();
            Result.insert(Result.begin(), YesOrNo(Read));
            return Result;
        },
        2);
    EXPECT_FALSE(Action.LoadConfigListFromProject("missing.csproj", List));
    EXPECT_TRUE(List.IsEmpty());
    EXPECT_TRUE(Host.Log.Messages.empty());
}

TEST(Compiler, MergesTheSymbolsOfAVBProject)
{
    TQXVBProjCompilerAction Action;
    CheckTable("compiler", "VB.NET symbols", [&](const TColumns& Row) {
        TXmlDocument Document;
        EXPECT_TRUE(Document.LoadFromText("<Config " + Row[0] + "/>"));
        Action.LoadConfigCompilerOptionsFromProjFile(Document.DocumentElement());
        return TColumns{Action.Defines};
    });
}

TEST(Compiler, AnythingThatIsThrownEndsTheLoadWithItsMessage)
{
    TPackageHost Host;
    Host.Runtime.SetRegistrySource(
        []() -> std::unique_ptr<IRegistry> { throw std::runtime_error("build.reg:3: no such key"); });
    TQXCSProjCompilerAction Action;
    WriteProject(Host, Action, "<Reference AssemblyName='a' AssemblyFolderKey='hklm\\a'/>");
    EXPECT_THROW(static_cast<void>(Host.CommandLine(Action)), std::runtime_error);
    EXPECT_EQ(Host.Log.Messages.back(), "An error occured : build.reg:3: no such key");
}

TEST(Compiler, NothingIsLeftOfTheLastRun)
{
    TPackageHost Host;
    TQXCSProjCompilerAction Action;
    WriteProject(Host, Action, "<Reference AssemblyName='System'/>");
    Action.LibLocations = "lib";
    (void)Host.CommandLine(Action);
    const std::string First = Host.Folder.Read("qxresp.rsp");
    (void)Host.CommandLine(Action);
    EXPECT_EQ(Host.Folder.Read("qxresp.rsp"), First);
    EXPECT_NE(First.find("/lib:lib"), std::string::npos);
}
