#include "tests/package/PackageTest.h"

#include "package/compiler/QXDotNetManagedCompilerAction.h"

namespace
{
/// A C# project around some of its elements.
std::string Project(const std::string& Settings, const std::string& References, const std::string& Files)
{
    return "<VisualStudioProject><CSHARP SchemaVersion=\"2.0\"><Build>" + Settings + "<References>" + References +
           "</References></Build><Files><Include>" + Files + "</Include></Files></CSHARP></VisualStudioProject>";
}

const std::string Settings = "<Settings AssemblyName=\"A\"><Config Name=\"Debug\" OutputPath=\"bin\\\"/></Settings>";
const std::string Source = "<File RelPath=\"a.cs\" BuildAction=\"Compile\"/>";

std::string ComReference(const std::string& Tool, const std::string& Major, const std::string& Minor,
                         const std::string& Locale)
{
    return "<Reference Name=\"AxFoo\" Guid=\"{1}\" WrapperTool=\"" + Tool + "\" VersionMajor=\"" + Major +
           "\" VersionMinor=\"" + Minor + "\" Lcid=\"" + Locale + "\"/>";
}

std::string Borland(const std::string& Options, const std::string& Files)
{
    return "<BorlandProject><CSharp.Personality>" + Options + "<FileList>" + Files +
           "</FileList></CSharp.Personality></BorlandProject>";
}

const std::string OptionsSet = "<Options><OptionsSet Name=\"Debug\"/></Options>";
const std::string BorlandSource = "<File FileName=\"a.cs\" ContainerId=\"CSharpCompiler\"/>";

constexpr const char* CSharp = "TQXCSProjCompilerAction";
constexpr const char* Builder = "TQXBorlandCSBuilderProjCompilerAction";

struct TFailure
{
    const char *Action, *File;
    std::string Content;
    std::string Message; ///< the last one; "..." at its end stands for what the parser or the system says
};

const TFailure Failures[] = {
    {CSharp, "a.csproj", "<VisualStudioProject>", "Error Loading Project File : $DIR/a.csproj\r\nReason : ..."},
    {CSharp, "a.csproj", "", "Error Loading Project File : $DIR/a.csproj\r\nReason : ..."},
    {CSharp, "a.csproj", std::string("<a\0b/>", 6), "Error Loading Project File : $DIR/a.csproj\r\nReason : ..."},
    {CSharp, "folder.csproj/x", "", "Error Opening Project File : ..."},
    {CSharp, "a.csproj",
     "<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"><PropertyGroup/></Project>",
     "a.csproj is a Visual Studio 2005 project file (MSBuild.) It needs to be compiled with the MSBuild action."},
    {CSharp, "a.csproj", "<Project xmlns=\"http://example.org/\"/>", "Invalid Visual Studio Project Version"},
    {CSharp, "a.csproj", "<VisualStudioProject><CSHARP/></VisualStudioProject>",
     "Invalid Visual Studio Project Version"},
    {CSharp, "a.vbproj", "<VisualStudioProject><VisualBasic SchemaVersion=\"1.0\"/></VisualStudioProject>",
     "Invalid Visual Studio Project Version"},
    {Builder, "a.csproj", Project(Settings, "", Source), "Invalid Visual Studio Project Version"},
    {CSharp, "a.csproj", Project("", "", Source), "Unable to find Settings node in project document"},
    {CSharp, "a.csproj", Project("<Settings/>", "", Source), "Unable to load Config Nodes in project document"},
    {CSharp, "a.csproj", Project("<Settings><Config Name=\"Other\"/></Settings>", "", Source),
     "Configuration : Debug - not found in project file"},
    {CSharp, "a.csproj", Project("<Settings><Config name=\"Debug\"/></Settings>", "", Source),
     "Configuration : Debug - not found in project file"},
    {CSharp, "a.csproj", Project(Settings, "", ""), "No Files to compile!"},
    {CSharp, "a.csproj", Project(Settings, "<Reference Name=\"Core\" Project=\"{1}\"/>", Source),
     "Unable to resolve project reference: Core"},
    {CSharp, "a.csproj", Project(Settings, ComReference("primary", "1", "0", "0"), Source),
     "An error occured : Could not detect the location of the GAC!"},
    {CSharp, "a.csproj", Project(Settings, ComReference("tlbimp", "1", "a", "0"), Source),
     "An error occured : VersionMinor \"a\" is not a number"},
    {CSharp, "a.csproj", Project(Settings, ComReference("aximp", "g", "0", "0"), Source),
     "An error occured : VersionMajor \"g\" is not a hexadecimal number"},
    {CSharp, "a.csproj", Project(Settings, ComReference("aximp", "", "0", "0"), Source),
     "An error occured : VersionMajor \"\" is not a hexadecimal number"},
    {CSharp, "a.csproj", Project(Settings, ComReference("tlbimp", "1", "0", "99999999999"), Source),
     "An error occured : Lcid \"99999999999\" is not a number"},
    {CSharp, "a.csproj", Project(Settings, ComReference("TlbImp", "1", "0", "0"), Source),
     "Unable to locate Type Library for : AxFoo"},
    {CSharp, "a.csproj", Project(Settings, "", "<File RelPath=\"a.resx\" BuildAction=\"EmbeddedResource\"/>"),
     "Error - File : $DIR/a.resx - does not exist!"},
    {CSharp, "a.csproj",
     Project(Settings, "", "<File Link=\"a.csproj\" BuildAction=\"EmbeddedResource\" DependentUpon=\"x\\b.cs\"/>"),
     "Unable to determine namespace for resource file"},
    {"TQXVBProjCompilerAction", "a.vbproj",
     "<V><VisualBasic SchemaVersion=\"1.0\"><Build>" + Settings + "</Build><Files><Include>" + Source +
         "</Include></Files></VisualBasic></V>",
     "Error loading compiler setttings!"},
    {Builder, "a.bdsproj", "<BorlandProject>", "Error Loading Project File : $DIR/a.bdsproj\r\nReason : ..."},
    {Builder, "a.bdsproj", "<BorlandProject><Delphi.Personality/></BorlandProject>",
     "Unable to find Settings node in project document"},
    {Builder, "a.bdsproj", Borland("<Options/>", BorlandSource), "Unable to load Config Nodes in project document"},
    {Builder, "a.bdsproj", Borland("<Options><OptionsSet/></Options>", BorlandSource),
     "OptionSet : Debug - not found in project file"},
    {Builder, "a.bdsproj", Borland(OptionsSet, ""), "No Files to compile!"},
    {Builder, "a.bdsproj", Borland(OptionsSet, "<File FileName=\"a.resx\" ContainerId=\"ResXCompiler\"/>"),
     "Error compiling resource : $DIR/a.resx"},
    {Builder, "a.bdsproj",
     Borland(OptionsSet, "<File FileName=\"a.resx\" Parent=\"b.cs\" ContainerId=\"ResXCompiler\"/>"),
     "Unable to determine namespace for resource file"},
};

std::unique_ptr<TQXManagedCompilerAction> CreateCompiler(TPackageHost& Host, const char* Class, const std::string& File)
{
    auto Action = Host.Create<TQXManagedCompilerAction>(Class);
    Action->ProjectFile = Host.Folder.Path() + '/' + File;
    Action->ConfigName = "Debug";
    return Action;
}

bool GetCommandLine(TPackageHost& Host, TQXManagedCompilerAction& Action)
{
    const auto Connection = Host.Connect(Action);
    return Action.GetCommandLine(*CreateCommandLineBuilder());
}
} // namespace

TEST(ProjectLoading, EveryFailureIsTold)
{
    for (const TFailure& Failure : Failures)
    {
        TPackageHost Host;
        const std::string File = Failure.File;
        Host.Folder.Write(File, Failure.Content);
        const auto Action = CreateCompiler(Host, Failure.Action, File.substr(0, File.find('/')));
        EXPECT_FALSE(GetCommandLine(Host, *Action)) << Failure.Message;
        EXPECT_FALSE(Host.Folder.Exists("qxresp.rsp"));

        std::string Expected = Failure.Message;
        if (const auto Place = Expected.find("$DIR"); Place != std::string::npos)
            Expected.replace(Place, 4, Host.Folder.Path());
        ASSERT_FALSE(Host.Log.Messages.empty()) << Expected;
        std::string Actual = Host.Log.Messages.back();
        if (Expected.ends_with("..."))
        {
            Expected.resize(Expected.size() - 3);
            EXPECT_GT(Actual.size(), Expected.size()) << "a reason";
            Actual = Actual.substr(0, Expected.size());
        }
        EXPECT_EQ(Actual, Expected);
    }
}

TEST(ProjectLoading, APlaceInTheFileIsGivenByItsLine)
{
    TPackageHost Host;
    Host.Folder.Write("a.csproj", "<a>\r\n<b>\r\n</a>\r\n");
    const auto Action = CreateCompiler(Host, CSharp, "a.csproj");
    EXPECT_FALSE(GetCommandLine(Host, *Action));
    const auto Message = Lines(Host.Log.Messages.back());
    ASSERT_EQ(Message.size(), 3U);
    EXPECT_EQ(Message[2], "Line   : 3");
}

TEST(ProjectLoading, TheResourceCompilerMustBeThereEvenIfNothingNeedsIt)
{
    const std::vector<std::vector<TFakeDotNetVersion>> Cases = {
        {}, {{"v1.1", "/framework", "/sdk"}}, {{"v2.0", "/framework", ""}}, {{"v2.0", "/framework", "/no-such-sdk"}}};
    for (const auto& Versions : Cases)
        for (const bool IsBorland : {false, true})
        {
            TPackageHost Host;
            Host.SetDotNetVersions(Versions);
            const std::string File = IsBorland ? "a.bdsproj" : "a.csproj";
            Host.Folder.Write(File, IsBorland ? Borland(OptionsSet, BorlandSource) : Project(Settings, "", Source));
            const auto Action = CreateCompiler(Host, IsBorland ? Builder : CSharp, File);
            Action->OverrideSDKDefault = true;
            Action->SetDefaultSDKVersion("v2.0");
            EXPECT_FALSE(GetCommandLine(Host, *Action));
            EXPECT_EQ(Host.Log.Messages.back(), ".NET SDK Version v2.0 - not detected on this machine!");
        }
}

TEST(ProjectLoading, AFileInTheWayOfTheObjectFolder)
{
    TPackageHost Host;
    Host.Folder.Write("obj");
    Host.Folder.Write("a.bdsproj", Borland(OptionsSet, BorlandSource));
    const auto Action = CreateCompiler(Host, Builder, "a.bdsproj");
    EXPECT_FALSE(GetCommandLine(Host, *Action));
    EXPECT_EQ(Host.Log.Messages.back(), "Unable to create output directory : " + Host.Folder.Path() + "/obj/Debug/");

    // For the other format it shows when a tool needs the folder.
    Host.Folder.Write("a.csproj", Project(Settings, "", Source));
    EXPECT_TRUE(GetCommandLine(Host, *CreateCompiler(Host, CSharp, "a.csproj")));
}

TEST(ProjectLoading, AnythingThatIsThrownEndsTheLoadWithItsMessage)
{
    TPackageHost Host;
    Host.Runtime.SetRegistrySource(
        []() -> std::unique_ptr<IRegistry> { throw std::runtime_error("build.reg:3: no such key"); });
    Host.Folder.Write("a.csproj",
                      Project(Settings, "<Reference AssemblyName=\"a\" AssemblyFolderKey=\"hklm\\a\"/>", Source));
    EXPECT_FALSE(GetCommandLine(Host, *CreateCompiler(Host, CSharp, "a.csproj")));
    EXPECT_EQ(Host.Log.Messages.back(), "An error occured : build.reg:3: no such key");
}

TEST(ProjectLoading, NothingIsLeftOfTheLastRun)
{
    TPackageHost Host;
    Host.Folder.Write("a.csproj", Project(Settings, "<Reference AssemblyName=\"System\"/>", Source));
    const auto Action = CreateCompiler(Host, CSharp, "a.csproj");
    Action->LibLocations = "lib";
    EXPECT_TRUE(GetCommandLine(Host, *Action));
    const std::string First = Host.Folder.Read("qxresp.rsp");
    EXPECT_TRUE(GetCommandLine(Host, *Action));
    EXPECT_EQ(Host.Folder.Read("qxresp.rsp"), First);
    EXPECT_NE(First.find("/lib:lib"), std::string::npos);
}

TEST(ProjectLoading, ReadsEveryEncodingOfAProject)
{
    const std::string Text = Project(Settings, "",
                                     "<File RelPath=\"gr\xC3\xB6\xC3\x9F"
                                     "e.cs\" BuildAction=\"Compile\"/>");
    std::string Wide = "\xFF\xFE";
    for (std::size_t Index = 0; Index < Text.size(); ++Index)
        if (Text[Index] == '\xC3')
            Wide += {static_cast<char>(Text[++Index] + '\x40'), '\0'};
        else
            Wide += {Text[Index], '\0'};
    std::string Narrow;
    for (std::size_t Index = 2; Index < Wide.size(); Index += 2)
        Narrow += Wide[Index];

    for (const std::string& Content : {Text, "\xEF\xBB\xBF" + Text, Wide, Narrow})
    {
        TPackageHost Host;
        Host.Folder.Write("a.csproj", Content);
        EXPECT_TRUE(GetCommandLine(Host, *CreateCompiler(Host, CSharp, "a.csproj")));
        EXPECT_EQ(Lines(Host.Folder.Read("qxresp.rsp")).back(), '"' + Host.Folder.Path() +
                                                                    "/gr\xC3\xB6\xC3\x9F"
                                                                    "e.cs\"");
    }
}
