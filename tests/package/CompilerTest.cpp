#include "tests/package/PackageTest.h"

#include "package/compiler/QXBorlandCSBuilderProjCompilerAction.h"
#include "package/compiler/QXCSProjCompilerAction.h"
#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXJSharpProjCompilerAction.h"
#include "package/compiler/QXProjectLoader.h"
#include "package/compiler/QXVBProjCompilerAction.h"
#include "platform/Files.h"

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

TEST(Compiler, AProjectDirectoryThatCannotBeExpandedIsTold)
{
    TPackageHost Host;
    TQXCSharpCompilerAction Action;
    Action.ProjectDir = "%NoSuchVariable%";
    const auto Connection = Host.Connect(Action);
    EXPECT_EQ(Action.GetStartingDir(""), "");
    ASSERT_EQ(Host.Log.ExpansionErrors.size(), 1U);
    EXPECT_EQ(Host.Log.ExpansionErrors[0].Label, "Project Directory");
    EXPECT_EQ(Host.Log.Messages, std::vector<std::string>{"ERROR! Unable to expand project directory"});
}

TEST(Compiler, EveryListIsExpandedUnderTheLabelOfItsSetting)
{
    static const std::pair<const char*, const char*> Rows[] = {
        {"DocFile", "Doc to XML File"},
        {"LibLocations", "Library Locations"},
        {"Icon", "Icons"},
        {"Win32Resources", "Win32 Resources"},
        {"Modules", "Modules"},
        {"References", "References"},
        {"SupressWarnings", "No warnings"},
        {"Defines", "Define Preprocessor Symbols"},
        {"LinkResources", "Link Resource"},
        {"Resources", "Resource"},
        {"BaseAddress", "Base Address"},
        {"CodePage", "Code Page"},
        {"MainClass", "Main Class"},
        {"OutputFile", "Output File"},
        {"RecurseDir", "Recurse Directory"},
        {"Files", "Files"},
    };
    TPackageHost Host;
    for (const auto& [Property, Label] : Rows)
    {
        const auto Action = Host.Create<TQXExecuteAbstractAction>("TQXCSharpCompilerAction");
        ASSERT_TRUE(SetProperty(*Action, "ProjectDir", Host.Folder.Path()));
        ASSERT_TRUE(SetProperty(*Action, "Files", "a.cs"));
        ASSERT_TRUE(SetProperty(*Action, Property, "%NoSuchVariable%"));
        Host.Log.ExpansionErrors.clear();
        EXPECT_THROW(static_cast<void>(Host.CommandLine(*Action)), std::runtime_error) << Property;
        ASSERT_EQ(Host.Log.ExpansionErrors.size(), 1U) << Property;
        EXPECT_EQ(Host.Log.ExpansionErrors[0].Label, Label);
    }
    EXPECT_FALSE(Host.Folder.Exists("qxresp.rsp"));
}

TEST(Compiler, ASecondValueNeverStandsAlone)
{
    struct TRow
    {
        const char *Value, *Second;
        bool AddWhenEmpty;
        std::vector<std::string> Expected;
    };
    const TRow Rows[] = {
        {"a", "b", false, {"/s:a|b"}}, {" a b ", " c d ", false, {"/s:\"a b\"|c d"}}, {"", "b", false, {}},
        {"", "b", true, {"/s"}},       {"a \"b\" c", "", true, {"/s:a \"b\" c"}},     {"  ", "", false, {}},
    };
    const TQXCSharpCompilerAction Action;
    for (const TRow& Row : Rows)
    {
        TStringList Actual;
        EXPECT_TRUE(
            Action.AddOptionToResponseFile("/s", "Label", Row.Value, Row.Second, Actual, Row.AddWhenEmpty, "|"));
        EXPECT_EQ(Actual.Items(), Row.Expected) << Row.Value;
    }
}

TEST(Compiler, ConfigurationNamesBecomeFolders)
{
    struct TRow
    {
        const char *Name, *Normal, *Compact;
    };
    static const TRow Rows[] = {
        {"Debug", "Debug", "Debug"},
        {"Debug|.NET", "Debug", ".NET/Debug"},
        {"Debug|Pocket PC", "Pocket PC/Debug", "Debug"},
        {"Debug|Windows CE", "Windows CE/Debug", "Windows CE/Debug"},
        {"a|b|c", "b|c/a", "b|c/a"},
        {"|", "/", "/"},
    };
    TQXVBProjCompilerAction Normal;
    TQXVBProjCompilerAction Compact;
    Compact.ProjectFile = "a.VBDProj";
    for (const TRow& Row : Rows)
    {
        EXPECT_EQ(Normal.UnMangleConfigName(Row.Name), Row.Normal) << Row.Name;
        EXPECT_EQ(Compact.UnMangleConfigName(Row.Name), Row.Compact) << Row.Name;
    }
}

TEST(Compiler, FindsTheClassThatNamesAResource)
{
    struct TRow
    {
        char Language; ///< 'c', 'v', 'j'
        const char *Source, *Root, *Name;
        bool Found;
    };
    static const TRow Rows[] = {
        {'c', "using X;\nnamespace A.B\n{\n\tpublic class C : Form\n", "R", "A.B.C", true},
        {'c', "namespace A.B {\n internal sealed CLASS\tC:Form", "", "A.B.C", true},
        {'c', "namespace\t A{\n public class  D\n", "", "A{.D", true},
        {'c', "// namespace X\n  namespace A\n// a class B\nclass C\npublic class D", "", "A.D", true},
        {'c', "public class C {}\n", "R", "", false},
        {'c', "namespace A\nclass C\n", "R", "A", false},
        {'c', "namespace A { public class Same }\npublic class Next", "", "A.Next", true},
        {'c', "namespace\npublic class C", "", ".C", true},
        {'v', "' Namespace X\nNAMESPACE N ' note\n Public Class C Inherits D", "R", "R.N.C", true},
        {'v', "Public Class C", "R", "R.C", true},
        {'v', "Namespace A\nEnd Namespace\nNamespace B\nFriend class c", "", "B.c", true},
        {'v', "Class C\nEnd Class", "", "", false},
        {'v', "Class C", "R", "R.", false},
        {'j', "package p;\n// public class X\nabstract class A\npublic class C extends D", "", ".C", true},
        {'j', "public class C", "Acme", "Acme.C", true},
        {'j', "public final class C", "Acme", "Acme.", false},
        {'j', "", "", ".", false},
    };
    TPackageHost Host;
    TQXCSProjCompilerAction CSharp;
    TQXVBProjCompilerAction VB;
    TQXJSProjCompilerAction JSharp;
    for (const TRow& Row : Rows)
    {
        VB.RootNameSpace = CSharp.RootNameSpace = JSharp.JSRootNamespace = Row.Root;
        const TQXManagedCompilerAction& Action = Row.Language == 'c'   ? CSharp
                                                 : Row.Language == 'v' ? VB
                                                                       : static_cast<TQXManagedCompilerAction&>(JSharp);
        std::string Name = "old";
        EXPECT_EQ(Action.DetectNameSpace(Host.Folder.Write("source", Row.Source), Name), Row.Found) << Row.Source;
        EXPECT_EQ(Name, Row.Name) << Row.Source;
    }
    std::string Name;
    EXPECT_THROW(static_cast<void>(TQXBorlandCSBuilderProjCompilerAction().DetectNameSpace("missing", Name)),
                 std::runtime_error);
}

TEST(Compiler, ListsTheConfigurationsOfAProject)
{
    struct TRow
    {
        const char *Name, *Content;
        bool Result;
        std::vector<std::string> Expected;
    };
    const TRow Rows[] = {
        {"a.csproj",
         "<V><CSHARP><Build><Settings A='x && y'><Config Name='b'/><Config/><Config Name='a'/>"
         "</Settings></Build></CSHARP></V>",
         true,
         {"b", "", "a"}},
        {"a.CSDPROJ", "<V><ECSHARP><Build><Settings><Config Name='x'/></Settings></Build></ECSHARP></V>", true, {"x"}},
        {"a.bdsproj",
         "<B><CSharp.Personality><Options><OptionsSet Name='o'/></Options></CSharp.Personality></B>",
         true,
         {"o"}},
        {"b.bdsproj", "<B A='x && y'/>", false, {}},
        {"other.csproj", "<Other/>", true, {}},
        {"broken.csproj", "<V><CSHARP>", false, {}},
        {"empty.csproj", "", false, {}},
    };
    TPackageHost Host;
    const TQXCSProjCompilerAction Action;
    TStringList List;
    for (const TRow& Row : Rows)
    {
        List = {"old"};
        EXPECT_EQ(Action.LoadConfigListFromProject(Host.Folder.Write(Row.Name, Row.Content), List), Row.Result)
            << Row.Name;
        EXPECT_EQ(List.Items(), Row.Expected) << Row.Name;
    }
    EXPECT_FALSE(Action.LoadConfigListFromProject("missing.csproj", List));
    EXPECT_TRUE(List.IsEmpty());
    EXPECT_TRUE(Host.Log.Messages.empty());
}

TEST(Compiler, MergesTheSymbolsOfAVBProject)
{
    struct TRow
    {
        const char *Attributes, *Expected;
    };
    static const TRow Rows[] = {
        {"DefineConstants='' DefineDebug='true' DefineTrace='on'", "DEBUG=True,TRACE=True"},
        {"DefineConstants='A=1,DEBUG=0,B' DefineDebug='TRUE'", "A=1,DEBUG=True,B"},
        {"DefineConstants='DEBUG' DefineDebug='true'", "DEBUG,DEBUG=True"},
        {"DefineConstants='DEBUG=1,TRACE=1' DefineDebug='false'", "DEBUG=1,TRACE=1"},
        {"DefineConstants='A=1 B=2'", "A=1,B=2"},
        {"DefineConstants='A=&quot;x y&quot;'", "\"A=\"\"x\",\"y\"\"\""},
        {"", ""},
    };
    TQXVBProjCompilerAction Action;
    for (const TRow& Row : Rows)
    {
        TXmlDocument Document;
        ASSERT_TRUE(Document.LoadFromText(std::string("<Config ") + Row.Attributes + "/>"));
        Action.LoadConfigCompilerOptionsFromProjFile(Document.DocumentElement());
        EXPECT_EQ(Action.Defines, Row.Expected) << Row.Attributes;
    }
}
