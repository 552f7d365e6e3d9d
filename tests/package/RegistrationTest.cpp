#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "package/plugin/QXDotNetAction.h"

#include <array>
#include <cstdio>
#include <set>

namespace
{
struct TRow
{
    const char *ClassName, *Name, *Category, *Image;
    int HelpTopic;
    const char *Help, *Properties; ///< persisted, in order, without those of every .NET tool
};

constexpr TRow Rows[] = {
    {"TQXAssemblyInfoUpdaterAction", "AssemblyInfo Updater", "Compilers", "ASSEMBLYUPATER", 2500,
     "Plugins\\AssemblyInfoUpdater.html", "Selection,BackupFiles,Recurse,Attributes,UpdateOnly"},
    {"TQXCSharpCompilerAction", "Microsoft C# Compiler", "Compilers", "CSHARP", 2510, "Plugins\\CSharpCompiler.html",
     "NoLogo,OutputInUTF8,Optimize,OutputFile,Target,Modules,LibLocations,References,Debug,SupressWarnings,WarnAsError,"
     "Defines,LinkResources,Resources,Icon,Win32Resources,BaseAddress,CodePage,MainClass,RecurseDir,RecurseFiles,Files,"
     "ProjectDir,KeepResponseFile,FileAlign,DocFile,NoSTDLib,Checked,FullPaths,Incremental,NoConfig,CompileUnsafe,"
     "WarningLevel"},
    {"TQXCSProjCompilerAction", "Microsoft C# Project Compiler", "Compilers", "CSHARP", 2520,
     "Plugins\\CSharpProjectCompiler.html",
     "ProjectFile,ConfigName,LibLocations,CFResGen,CopyConfigFiles,SDKPath,KeepResponseFile"},
    {"TQXVBDotNetCompilerAction", "Microsoft VB.NET Compiler", "Compilers", "VBDOTNET", 2530,
     "Plugins\\VBDotNetCompiler.html",
     "NoLogo,OutputInUTF8,Optimize,OutputFile,Target,Modules,LibLocations,References,Debug,SupressWarnings,WarnAsError,"
     "Defines,LinkResources,Resources,Icon,Win32Resources,BaseAddress,MainClass,RecurseDir,RecurseFiles,Files,"
     "ProjectDir,RootNameSpace,SDKPath,KeepResponseFile,Verbose,TargetCF,Imports,RemoveIntChecks,Quiet,OptionExplicit,"
     "OptionStrict,OptionCompare,DelaySign,KeyContainer,KeyFile"},
    {"TQXVBProjCompilerAction", "Microsoft VB.Net Project Compiler", "Compilers", "VBDOTNET", 2540,
     "Plugins\\VBDotNetProjectCompiler.html",
     "ProjectFile,ConfigName,CFResGen,LibLocations,SDKPath,CopyConfigFiles,KeepResponseFile"},
    {"TQXJSharpCompilerAction", "Microsoft J# Compiler", "Compilers", "JSHARP", 2550, "Plugins\\JSharpCompiler.html",
     "NoLogo,OutputInUTF8,Optimize,OutputFile,Target,Modules,LibLocations,References,Debug,SupressWarnings,WarnAsError,"
     "Defines,LinkResources,Resources,Win32Resources,BaseAddress,CodePage,MainClass,RecurseDir,RecurseFiles,Files,"
     "ProjectDir,KeepResponseFile,WarningLevel,SecureScoping,DisableLangExt,JCPA"},
    {"TQXJSProjCompilerAction", "Microsoft J# Project Compiler", "Compilers", "JSHARP", 2560,
     "Plugins\\JSharpProjectCompiler.html",
     "ProjectFile,ConfigName,CFResGen,LibLocations,CopyConfigFiles,KeepResponseFile"},
    {"TQXBorlandCSBuilderProjCompilerAction", "Borland C# Builder Compiler", "Compilers", "BDSPROJ", 2570,
     "Plugins\\BorlandCSBuilderProjCompiler.html", "ProjectFile,ConfigName,KeepResponseFile"},
    {"TQXDotNetComReferenceFixAction", "Fix TlbImp Project Reference", ".Net Tools", "ASSEMBLYUPATER", 4220,
     "Plugins\\ComRefAction.html", "ProgID,ReferenceName,ProjectFile"},
    {"TGACInstallAction", "GAC Install [GACUTIL]", ".Net Tools", "GACINSTALL", 2630, "Plugins\\GACInstall.html",
     "AssemblyName,AssemblyPath,AssemblyListFile,UseListFile,Force,ReferenceCount,RefScheme,RefID,RefDescription"},
    {"TGACUninstallAction", "GAC Uninstall [GACUTIL]", ".Net Tools", "GACUNINSTALL", 2640, "Plugins\\GACUninstall.html",
     "AssemblyName,AssemblyPath,AssemblyListFile,UseListFile,Force,ReferenceCount,RefScheme,RefID,RefDescription,"
     "UseAssemblyPath"},
    {"TGACListAction", "GAC Download Cache [GACUTIL]", ".Net Tools", "GACLIST", 2650, "Plugins\\GACList.html",
     "AssemblyName,AssemblyPath,AssemblyListFile,UseListFile,Force,ReferenceCount,RefScheme,RefID,RefDescription,"
     "DeleteDownloadCache"},
};

std::string PersistedNames(const TCustomQXAction& Action)
{
    TStringList Names;
    for (const TQXProperty& Property : Action.Properties())
        if (Property.IsPersisted())
            Names.Add(std::string(Property.Name));
    return Names.CommaText();
}
} // namespace

TEST(Registration, GivesEveryActionInOrder)
{
    TPackageHost Host;
    const auto Actions = Host.Runtime.ActionServices().Actions();
    ASSERT_GE(Actions.size(), std::size(Rows));
    for (std::size_t Index = 0; Index < std::size(Rows); ++Index)
    {
        const TRow& Row = Rows[Index];
        const TQXActionRegistration& Actual = Actions[Index];
        SCOPED_TRACE(Row.ClassName);
        EXPECT_EQ(Actual.ActionClass.ClassName, Row.ClassName);
        EXPECT_EQ(Actual.DisplayName, Row.Name);
        EXPECT_EQ(Actual.Category, Row.Category);
        EXPECT_EQ(Actual.ImageName, Row.Image);
        EXPECT_EQ(Actual.ActionClass.HelpTopicID, Row.HelpTopic);
        EXPECT_EQ(Actual.ActionClass.QuickHelpFilename, Row.Help);
        const auto Action = Actual.ActionClass.Create();
        const bool RunsDotNetTool = dynamic_cast<TQXDotNetAction*>(Action.get()) != nullptr;
        const std::string Inherited = RunsDotNetTool ? "OverrideSDKDefault,SDKVersion,MinimumSDKVersion," : "";
        EXPECT_EQ(PersistedNames(*Action), Inherited + Row.Properties);
        EXPECT_EQ(Host.Runtime.ActionServices().FindPropertyEditor(Row.ClassName, "ProjectFile"), nullptr);
    }
}

TEST(Registration, NamesAreUniqueAndPropertiesKeepWhatTheyAreGiven)
{
    TPackageHost Host;
    std::set<std::string> Names;
    for (const TQXActionRegistration& Registration : Host.Runtime.ActionServices().Actions())
    {
        EXPECT_TRUE(Names.insert(Registration.DisplayName).second) << Registration.DisplayName;
        EXPECT_TRUE(Names.insert(Registration.ActionClass.ClassName).second) << Registration.ActionClass.ClassName;
        const auto Action = Registration.ActionClass.Create();
        for (const TQXProperty& Property : Action->Properties())
        {
            if (!Property.IsPersisted())
                continue;
            TQXPropertyValue Value = Property.Read();
            if (Property.Type == TQXPropertyType::Boolean)
                Value = !std::get<bool>(Value);
            else if (Property.Type == TQXPropertyType::Enumeration)
                Value = std::string(Property.Elements.back());
            else if (Property.Type == TQXPropertyType::StringList)
                Value = std::vector<std::string>{"a=b", ""};
            else
                Value = "another text";
            Property.Write(Value);
            EXPECT_EQ(Property.Read(), Value) << Registration.ActionClass.ClassName << '.' << Property.Name;
        }
    }
}

TEST(Registration, EditorsComeAtDesignTime)
{
    static const std::array<const char*, 4> Expected[] = {
        {"TQXCSProjCompilerAction", "TQXCSharpProjectEditor", "csproj", "C# Projects (*.csproj)|*.csproj"},
        {"TQXVBProjCompilerAction", "TQXVBProjectEditor", "vbproj", "VB.NET Projects (*.vbproj)|*.vbproj"},
        {"TQXJSProjCompilerAction", "TQXJSharpProjectEditor", "vjsproj", "J# Projects (*.vjsproj)|*.vjsproj"},
        {"TQXBorlandCSBuilderProjCompilerAction", "TQXCSharpBuilderProjectEditor", "bdsproj",
         "C# Builder Projects (*.bdsproj)|*.bdsproj"},
    };
    TTestHost Host;
    QXRegister(true);
    for (const auto& [ActionName, EditorName, Extension, Filter] : Expected)
    {
        const auto* Class = Host.Runtime.ActionServices().FindPropertyEditor(ActionName, "ProjectFile");
        ASSERT_NE(Class, nullptr) << ActionName;
        const auto Editor = Class->Create();
        EXPECT_EQ(Class->ClassName, EditorName);
        EXPECT_EQ(Editor->GetDefaultExtension(), Extension);
        EXPECT_EQ(Editor->GetFilter(), Filter);
        EXPECT_EQ(Editor->GetDialogTitle(), "Select Project File");
    }
}

TEST(Registration, TheOptionsComeFirst)
{
    TTestHost Host;
    QXRegister(false);
    const auto Options = Host.Runtime.OptionsServices().Options();
    ASSERT_FALSE(Options.empty());
    EXPECT_EQ(Options[0].OptionsClass.ClassName, "TQXDotNetOptions");
    EXPECT_EQ(Options[0].OptionsClass.Name, "Microsoft .NET SDK");
    EXPECT_EQ(Options[0].OptionsClass.Category, ".NET Tools");
    EXPECT_EQ(Options[0].OptionsClass.OptionKey, "Microsoft.NET");
    EXPECT_EQ(Options[0].ImageName, "DOTNETOPT");
}

TEST(Package, ExportsItsEntryAndNothingElse)
{
    const std::string Module = QUEXLEY_BINARY_DIR "/lib/QX40DotNetFrameWork.so";
    if (!std::filesystem::exists(Module))
        GTEST_SKIP() << Module << " is not built";
    const std::string Command = "nm -D --defined-only --format=posix '" + Module + "' 2>/dev/null";
    std::FILE* Pipe = popen(Command.c_str(), "r");
    ASSERT_NE(Pipe, nullptr);
    std::string Symbols;
    char Buffer[4096];
    while (std::fgets(Buffer, sizeof Buffer, Pipe))
        Symbols += Buffer;
    if (pclose(Pipe) != 0)
        GTEST_SKIP() << "nm is not installed";
    const auto Found = Lines(Symbols);
    ASSERT_EQ(Found.size(), 1U) << Symbols;
    EXPECT_TRUE(Found[0].starts_with("QXRegister T ")) << Symbols;
}
