// A project with resources and licenses, compiled by the real tools: what the program finds in itself.
#include "tests/package/PackageTest.h"

#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/AssemblyMetadata.h"
#include "platform/Text.h"
#include "runtime/clrhost/DotNetVersions.h"
#include "runtime/clrhost/MonoDetection.h"

#include "gmock/gmock.h"

#include <cstdlib>

namespace
{
constexpr const char* Resx = R"(<root>
<resheader name="resmimetype"><value>text/microsoft-resx</value></resheader><resheader name="version"><value>1.3</value></resheader>
<resheader name="reader"><value>System.Resources.ResXResourceReader, System.Windows.Forms, Version=1.0.5000.0, Culture=neutral, PublicKeyToken=b77a5c561934e089</value></resheader>
<resheader name="writer"><value>System.Resources.ResXResourceWriter, System.Windows.Forms, Version=1.0.5000.0, Culture=neutral, PublicKeyToken=b77a5c561934e089</value></resheader>
<data name="$this.Size" type="System.Drawing.Size, System.Drawing, Version=1.0.3300.0, Culture=neutral, PublicKeyToken=b03f5f7f11d50a3a"><value>2, 3</value></data>
<data name="Text"><value>from the form</value></data></root>)";

constexpr const char* Program = R"(using System;
namespace Acme.Forms
{
    public class MainForm
    {
        public static void Main(string[] Arguments)
        {
            foreach (string Name in typeof(MainForm).Assembly.GetManifestResourceNames())
                Console.WriteLine(Name);
            Console.WriteLine(new System.Resources.ResourceManager(typeof(MainForm)).GetString("Text"));
        }
    }
})";

constexpr const char* Control = R"(using System.ComponentModel;
namespace Kit { [LicenseProvider(typeof(LicFileLicenseProvider))] public class Grid : Component {} })";

constexpr const char* Project = R"(<VisualStudioProject><CSHARP SchemaVersion="2.0"><Build>
<Settings AssemblyName="Acme" OutputType="Exe" RootNamespace="Root"><Config Name="Debug" OutputPath="bin\"/></Settings></Build><Files><Include>
<File RelPath="forms\main.resx" DependentUpon="Main.cs" BuildAction="EmbeddedResource"/>
<File RelPath="Sub\Größe & #1.resx" BuildAction="EmbeddedResource"/>
<File RelPath="img\a b.bmp" BuildAction="EmbeddedResource"/>
<File RelPath="x.txt" Link="..\shared\text.txt" BuildAction="EmbeddedResource"/>
<File RelPath="licenses.licx" BuildAction="EmbeddedResource"/>
<File RelPath="Forms\Main.cs" BuildAction="Compile"/></Include></Files></CSHARP></VisualStudioProject>)";

class TRealToolsHost : public TPackageHost
{
public:
    TRealToolsHost()
    {
        ::setenv("XDG_CACHE_HOME", (Folder.Path() + "/cache").c_str(), 1);
        Runtime.SetDotNetInfo(
            std::make_unique<TDotNetVersions>(DetectMono(MonoPrefixes()), std::vector<TConfiguredDotNet>{}));
    }
    ~TRealToolsHost() { ::unsetenv("XDG_CACHE_HOME"); }

    void Compile(const std::string& Source, const std::string& Output, const std::string& References)
    {
        const auto Action = Create<TQXManagedCompilerAction>("TQXCSharpCompilerAction");
        Action->ProjectDir = Folder.Path();
        Action->Files = Source;
        Action->OutputFile = Output;
        Action->References = References;
        ASSERT_TRUE(Execute(*Action)) << testing::PrintToString(Log.Events);
    }
    [[nodiscard]] static std::vector<std::string> Run(const std::string& Exe, const std::string& Arguments)
    {
        const auto Process = CreateQXProcess();
        Process->SetExecutable(Exe);
        Process->SetArguments(Arguments);
        TStringList Output;
        EXPECT_EQ(Process->RunCaptured(Output), 0);
        return Output.Items();
    }
    [[nodiscard]] TAssemblyMetadata Metadata(const std::string& File) const
    {
        return ReadAssemblyMetadata(Folder.Read(File)).value_or(TAssemblyMetadata());
    }
};
constexpr const char* CultureProgram = R"([assembly: System.Reflection.AssemblyVersion("1.2.3.4")]
[assembly: System.Reflection.AssemblyKeyFile("key.snk")]
namespace Acme
{
    public class Start
    {
        public static void Main(string[] Arguments)
        {
            System.Resources.ResourceManager Texts = new System.Resources.ResourceManager(typeof(Start));
            foreach (string Culture in new string[] { "de-AT", "fr" })
                System.Console.WriteLine(Texts.GetString("Text", new System.Globalization.CultureInfo(Culture)));
            System.Console.WriteLine(Kit.Name());
        }
    }
})";
constexpr const char* CultureProject = R"(<VisualStudioProject><CSHARP SchemaVersion="2.0"><Build>
<Settings AssemblyName="Acme" OutputType="Exe" RootNamespace="Root"><Config Name="Debug" OutputPath="bin\"/></Settings><References>
<Reference Name="Kit" AssemblyName="Kit" HintPath="..\lib\Kit.dll"/><Reference Name="System" AssemblyName="System"/></References></Build><Files><Include>
<File RelPath="Start.resx" DependentUpon="Start.cs" BuildAction="EmbeddedResource"/>
<File RelPath="Start.DE.resx" DependentUpon="Start.cs" BuildAction="EmbeddedResource"/>
<File RelPath="Start.cs" BuildAction="Compile"/></Include></Files></CSHARP></VisualStudioProject>)";
} // namespace

TEST(RealTools, AProgramThatFollowsTheIDEFindsItsCulturesAndLibraries)
{
    TRealToolsHost Host;
    if (Host.Runtime.DotNetInfo()->GetVersionCount() == 0)
        GTEST_SKIP() << "Mono is not installed";
    const std::string SDK = Host.Runtime.DotNetInfo()->GetVersionByIndex(0).GetSDKPath();
    Host.Folder.Write("lib/folder");
    Host.Folder.Write("p/folder");
    static_cast<void>(Host.Run(SDK + "/sn.exe", "-k p/key.snk"));
    const std::string Signed = "[assembly: System.Reflection.AssemblyKeyFile(\"p/key.snk\")]\n";
    Host.Folder.Write("deep.cs", Signed + "public class Deep { public static string Name() { return \"deep\"; } }");
    Host.Folder.Write("kit.cs", Signed + "public class Kit { public static string Name() { return Deep.Name(); } }");
    Host.Compile("deep.cs", "lib/Deep.dll", "");
    Host.Compile("kit.cs", "lib/Kit.dll", "lib/Deep.dll");
    Host.Folder.Write("p/Start.cs", CultureProgram);
    Host.Folder.Write("p/Start.resx", Resx);
    Host.Folder.Write("p/Start.DE.resx", Texts::Replace(Resx, "from the form", "aus dem Formular"));
    Host.Folder.Write("p/Acme.csproj", CultureProject);

    Host.Settings.FollowsIDE = true;
    const auto Action = Host.Create<TQXManagedCompilerAction>("TQXCSProjCompilerAction");
    Action->ProjectFile = "p/Acme.csproj";
    Action->ConfigName = "Debug";
    ASSERT_TRUE(Host.Execute(*Action)) << testing::PrintToString(Host.Log.Events);
    EXPECT_THAT(Host.Run("p/bin/Acme.exe", ""), testing::ElementsAre("aus dem Formular", "from the form", "deep"));

    Host.Folder.Write("p/bin/Kit.dll", "old");
    Host.Folder.Write("p/bin/Deep.dll", "of another project, and newer");
    ASSERT_TRUE(Host.Execute(*Action)) << testing::PrintToString(Host.Log.Events);
    EXPECT_EQ(Host.Folder.Read("p/bin/Kit.dll"), Host.Folder.Read("lib/Kit.dll"));
    EXPECT_EQ(Host.Folder.Read("p/bin/Deep.dll"), "of another project, and newer");

    const TAssemblyMetadata Main = Host.Metadata("p/bin/Acme.exe");
    const TAssemblyMetadata Satellite = Host.Metadata("p/bin/de/Acme.resources.dll");
    EXPECT_EQ(Satellite.Name, "Acme.resources");
    EXPECT_EQ(Satellite.Version, "1.2.3.4");
    EXPECT_NE(Satellite.PublicKey, "");
    EXPECT_EQ(Satellite.PublicKey, Main.PublicKey);
    EXPECT_THAT(Main.References, testing::UnorderedElementsAre("mscorlib", "Kit"));
    const std::string Bytes = Host.Folder.Read("p/bin/Acme.exe");
    for (std::size_t Size = 0; Size < 1024; ++Size)
        EXPECT_FALSE(ReadAssemblyMetadata(Bytes.substr(0, Size))) << Size;
    std::string Damaged = Bytes;
    for (std::size_t Place = 0; Place < Bytes.size(); ++Place, Damaged = Bytes)
        for (const char Byte : {'\xFF', '\0'})
        {
            Damaged[Place] = Byte;
            static_cast<void>(ReadAssemblyMetadata(Damaged)); // and comes back
        }
}

TEST(RealTools, ResourcesAreFoundByTheProgramThatTheyBelongTo)
{
    setenv("LC_ALL", "C.UTF-8", 1); // the program prints letters that the C locale lacks
    TRealToolsHost Host;
    if (Host.Runtime.DotNetInfo()->GetVersionCount() == 0)
        GTEST_SKIP() << "Mono is not installed";
    const std::string Folder = "my p,q;r=s 100%Done%/";
    for (const std::string& File : {Folder + "Forms/Main.resx", Folder + "Sub/Größe & #1.resx"})
        Host.Folder.Write(File, Resx);
    Host.Folder.Write(Folder + "Forms/Main.cs", Program);
    Host.Folder.Write(Folder + "img/a b.bmp", "bitmap");
    Host.Folder.Write("shared/Text.txt", "text");
    Host.Folder.Write(Folder + "licenses.licx", "Kit.Grid, Kit\r\n");
    Host.Folder.Write(Folder + "Acme.csproj", Project);
    Host.Folder.Write(Folder + "bin/Kit.cs", Control);

    const auto Kit = Host.Create<TQXManagedCompilerAction>("TQXCSharpCompilerAction");
    Kit->ProjectDir = Texts::Replace(Folder + "bin", "%", "%%");
    Kit->Files = "Kit.cs";
    Kit->OutputFile = "Kit.dll";
    ASSERT_TRUE(Host.Execute(*Kit)) << testing::PrintToString(Host.Log.Events);
    const auto Action = Host.Create<TQXManagedCompilerAction>("TQXCSProjCompilerAction");
    Action->ProjectFile = Texts::Replace(Folder + "Acme.csproj", "%", "%%");
    Action->ConfigName = "Debug";
    ASSERT_TRUE(Host.Execute(*Action)) << testing::PrintToString(Host.Log.Events);
    EXPECT_FALSE(Host.Folder.Exists(Folder + "bin/lc.exe"));

    const auto Process = CreateQXProcess();
    Process->SetExecutable(Folder + "bin/Acme.exe");
    TStringList Output;
    EXPECT_EQ(Process->RunCaptured(Output), 0);
    EXPECT_THAT(Output.Items(), testing::ElementsAre("Acme.Forms.MainForm.resources", "Root.Sub.Größe & #1.resources",
                                                     "Root.img.a b.bmp", "Root....shared.Text.txt", "Acme.exe.licenses",
                                                     "from the form"));
}
