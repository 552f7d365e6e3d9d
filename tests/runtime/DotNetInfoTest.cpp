#include "host/QXDotNetInfo.h"

#include "platform/Files.h"
#include "platform/Processes.h"
#include "runtime/Runtime.h"
#include "runtime/clrhost/DotNetVersions.h"
#include "runtime/clrhost/MonoDetection.h"
#include "tests/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace fs = std::filesystem;
using testing::ElementsAre;

namespace
{
std::vector<std::string> NamesOf(const IQXDotNetInfo& Info)
{
    std::vector<std::string> Result;
    Result.reserve(static_cast<std::size_t>(Info.GetVersionCount()));
    for (int Index = 0; Index < Info.GetVersionCount(); ++Index)
        Result.push_back(Info.GetVersionByIndex(Index).GetVersionName());
    return Result;
}

TEST(DotNetVersionsTest, NamesAreInNumericalOrder)
{
    // In order, the last one being the default: names of another form come before all versions.
    const std::vector<std::string> Names = {
        "",     "latest", "v",    "v1..2", "v1.x",   "v1",    "v1.0",
        "v1.1", "v2.0",   "v3.5", "v4.5",  "v4.5.1", "v10.0", "v99999999999999999999.0"};
    for (std::size_t Left = 0; Left < Names.size(); ++Left)
        for (std::size_t Right = 0; Right < Names.size(); ++Right)
            EXPECT_EQ(ComesBefore(Names[Left], Names[Right]), Left < Right) << Names[Left] << " " << Names[Right];
}

/// A made-up installation of Mono, and a cache folder for the tool folders.
class MonoTest : public testing::Test
{
public:
    MonoTest()
    {
        ::setenv("XDG_CACHE_HOME", Cache.c_str(), 1);
        AddTool("lib/mono/4.5/mcs.exe");
        AddTool("lib/mono/4.5/resgen.exe");
    }
    ~MonoTest() override { ::unsetenv("XDG_CACHE_HOME"); }

protected:
    void AddTool(const std::string& Name) const { Temp.Write(Name, Name); }
    [[nodiscard]] std::unique_ptr<TDotNetVersions> Detect(const std::vector<TConfiguredDotNet>& Configured = {}) const
    {
        return std::make_unique<TDotNetVersions>(DetectMono({(Root / "none").string(), Root.string()}), Configured);
    }
    [[nodiscard]] fs::path ToolFolder() const { return Detect()->GetVersion("v4.5")->GetSDKPath(); }

    TTempFolder Temp;
    fs::path Root = Temp.Path();
    fs::path Cache = Root / "cache";
};

TEST_F(MonoTest, ProfilesWithACompilerAreVersions)
{
    AddTool("lib/mono/4.5-api/mcs.exe");
    AddTool("lib/mono/gac/mcs.exe");
    AddTool("lib/mono/4.0/mscorlib.dll");
    AddTool("lib/mono/11.0/mcs.exe");
    EXPECT_THAT(NamesOf(*Detect()), ElementsAre("v4.5", "v11.0"));
    EXPECT_TRUE(DetectMono({(Root / "none").string()}).empty());
    EXPECT_FALSE(fs::exists(Cache)); // nothing is made before it is asked for
}

TEST_F(MonoTest, ConfiguredVersionsReplaceDetectedOnes)
{
    const auto Versions = Detect({{"v1.1", "/fw", "/sdk"}, {"v4.5", "", "/only-sdk"}, {"v10.0", "/f10", ""}});
    EXPECT_THAT(NamesOf(*Versions), ElementsAre("v1.1", "v4.5", "v10.0"));
    EXPECT_EQ(Versions->GetVersion("v1.1")->GetFrameworkPath(), "/fw");
    EXPECT_EQ(Versions->GetVersion("v4.5")->GetFrameworkPath(), "");
    EXPECT_EQ(Versions->GetVersion("v4.5")->GetSDKPath(), "/only-sdk");
    EXPECT_EQ(Versions->GetVersion("v2.0"), nullptr);
}

TEST_F(MonoTest, ToolsStandUnderTheNamesThatActionsUse)
{
    AddTool("lib/mono/4.5/System.dll");
    AddTool("lib/mono/4.5/xbuild.exe");
    AddTool("lib/mono/4.5/xbuild.exe.config");
    AddTool("lib/mono/4.5/al.exe");
    const fs::path Folder = ToolFolder();
    EXPECT_EQ(Folder.filename(), "v4.5");
    EXPECT_TRUE(Folder.string().starts_with(Cache.string()));
    const std::vector<std::pair<std::string, std::string>> Cases = {
        {"csc.exe", "mcs.exe"},        {"mcs.exe", "mcs.exe"},
        {"msbuild.exe", "xbuild.exe"}, {"msbuild.exe.config", "xbuild.exe.config"},
        {"al.exe", "al.exe"},          {"resgen.exe", "resgen.exe"},
        {"System.dll", "System.dll"},
    };
    for (const auto& [Name, Target] : Cases)
        EXPECT_EQ(Files::Read((Folder / Name).string()), "lib/mono/4.5/" + Target);
    EXPECT_FALSE(fs::exists(Folder / "vbc.exe"));
}

TEST_F(MonoTest, ToolFolderFollowsTheInstallation)
{
    const fs::path Folder = ToolFolder();
    const auto Made = fs::last_write_time(Folder);
    EXPECT_EQ(ToolFolder(), Folder);
    EXPECT_EQ(fs::last_write_time(Folder), Made); // nothing to do

    fs::remove(Root / "lib/mono/4.5/resgen.exe");
    AddTool("lib/mono/4.5/csc.exe");
    fs::remove(Folder / "mcs.exe");
    EXPECT_EQ(ToolFolder(), Folder);
    EXPECT_FALSE(fs::is_symlink(Folder / "resgen.exe"));
    EXPECT_EQ(Files::Read((Folder / "csc.exe").string()), "lib/mono/4.5/csc.exe");
    EXPECT_TRUE(fs::exists(Folder / "mcs.exe"));
    fs::remove_all(Folder);
    Files::Write(Folder.string(), "in the way");
    EXPECT_NE(ToolFolder(), Folder);
}

TEST_F(MonoTest, RunsSideBySideMakeOneFolder)
{
    for (int Tool = 0; Tool < 100; ++Tool)
        AddTool("lib/mono/4.5/tool" + std::to_string(Tool) + ".exe");
    std::vector<std::thread> Runs;
    std::vector<std::size_t> Counts(8);
    Runs.reserve(Counts.size());
    for (std::size_t& Count : Counts)
        Runs.emplace_back([this, &Count] {
            for (const auto& Entry : fs::directory_iterator(ToolFolder()))
                Count += fs::exists(Entry.path()) && Entry.path().extension() == ".exe" ? 1 : 0;
        });
    for (std::thread& Run : Runs)
        Run.join();
    EXPECT_THAT(Counts, testing::Each(103U));
}

TEST_F(MonoTest, WithoutACacheFolderThereIsATemporaryOne)
{
    Files::Write(Cache.string(), "a file");
    fs::path Folder;
    {
        const auto Versions = Detect();
        Folder = Versions->GetVersion("v4.5")->GetFrameworkPath();
        EXPECT_EQ(Versions->GetVersion("v4.5")->GetSDKPath(), Folder);
        EXPECT_TRUE(fs::exists(Folder / "csc.exe"));
    }
    EXPECT_FALSE(fs::exists(Folder));

    ::setenv("TMPDIR", (Root / "none").c_str(), 1);
    EXPECT_EQ(ToolFolder(), Root / "lib/mono/4.5");
    ::unsetenv("TMPDIR");
}

TEST_F(MonoTest, ToolsComeFromNoFolderThatOthersCanWriteTo)
{
    const mode_t Before = ::umask(0);
    const fs::path Folder = ToolFolder();
    ::umask(Before);
    for (fs::path Own = Folder; Own != Root; Own = Own.parent_path())
        EXPECT_EQ(fs::status(Own).permissions(), fs::perms::owner_all) << Own;

    fs::remove(Folder / "csc.exe");
    Files::Write((Folder / "csc.exe").string(), "poisoned");
    fs::permissions(Folder, fs::perms::all);
    EXPECT_EQ(ToolFolder(), Folder);
    EXPECT_EQ(Files::Read((Folder / "csc.exe").string()), "lib/mono/4.5/mcs.exe"); // made anew

    fs::rename(Folder, Root / "elsewhere");
    fs::create_symlink(Root / "elsewhere", Folder);
    EXPECT_NE(ToolFolder(), Folder);
    fs::remove_all(Cache);
    fs::create_directory(Cache);
    fs::permissions(Cache, fs::perms::all);
    EXPECT_NE(ToolFolder(), Folder);
    fs::permissions(Cache, fs::perms::owner_all);
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can make another user's folder";
    fs::create_directories(Folder);
    ASSERT_EQ(::chown(Folder.c_str(), 65534, 65534), 0);
    EXPECT_NE(ToolFolder(), Folder);
}

/// Runs a tool of the real Mono in Root and gives its exit code; what it printed is added to Output.
int RunTool(const fs::path& Tool, const std::string& Arguments, const fs::path& Folder, std::string& Output)
{
    struct TCollector : IProcessListener
    {
        explicit TCollector(std::string& AOutput) : Output(AOutput) {}
        void OnStdOutLine(std::string_view Line) override { Output.append(Line) += '\n'; }
        void OnStdErrLine(std::string_view Line) override { Output.append(Line) += '\n'; }
        std::string& Output;
    } Collector(Output);
    TProcessStart Start;
    Start.Executable = Tool.string();
    Start.Arguments = Arguments;
    Start.Folder = Folder.string();
    return RunProcess(ThroughRuntime(Start), Collector).ExitCode;
}

TEST_F(MonoTest, RealToolsFindFilesWhateverTheirCase)
{
    const TDotNetVersionList Versions = DetectMono(MonoPrefixes());
    if (Versions.empty())
        GTEST_SKIP() << "Mono is not installed";
    const fs::path Tools = Versions.back()->GetSDKPath();
    AddTool("Source/Sub/Main.cs");
    Files::Write((Root / "Source/Sub/Main.cs").string(),
                 "[assembly: System.Reflection.AssemblyKeyFile(@\"..\\..\\KEYS\\Key.snk\")]\n"
                 "class P { static void Main() { System.Console.Write(typeof(System.Xml.XmlDocument).Name + "
                 "System.IO.File.Exists(@\"SOURCE\\sub\\main.CS\")); } }\n");
    fs::create_directory(Root / "keys");
    std::string Output;
    EXPECT_EQ(RunTool(Tools / "sn.exe", "-k key.snk", Root / "keys", Output), 0) << Output;
    EXPECT_EQ(
        RunTool(Tools / "csc.exe", R"(/r:System.XML.dll /out:..\..\p.exe ..\SUB\main.cs)", Root / "Source/Sub", Output),
        0)
        << Output;
    Output.clear();
    EXPECT_EQ(RunTool(Root / "p.exe", "", Root, Output), 0);
    EXPECT_EQ(Output, "XmlDocumentTrue\n");
    EXPECT_EQ(RunTool(Tools / "sn.exe", "-v P.EXE", Root, Output), 0) << Output;
}

TEST_F(MonoTest, TheRuntimeAsksItsOptionsOnce)
{
    int Loads = 0;
    TQXRuntime Runtime;
    Runtime.SetOptionsSource([&] {
        ++Loads;
        return TOptionsFile::Parse("options.toml", "[dotnet]\ndetect = false\n[dotnet.\"v2.0\"]\nsdk = \"/sdk\"\n"
                                                   "[dotnet.\"v1.1\"]\nframework = \"/fw\"\n");
    });
    EXPECT_EQ(Loads, 0);
    EXPECT_THAT(NamesOf(QXDotNetInfo()), ElementsAre("v1.1", "v2.0"));
    EXPECT_EQ(&QXDotNetInfo(), Runtime.DotNetInfo());
    EXPECT_EQ(Loads, 1);
    Runtime.SetDotNetInfo(std::make_unique<TDotNetVersions>(TDotNetVersionList(), std::vector<TConfiguredDotNet>{}));
    EXPECT_EQ(QXDotNetInfo().GetVersionCount(), 0);
}
} // namespace
