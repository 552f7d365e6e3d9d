#include "package/sourceupdate/QXTypeLibrarySearch.h"
#include "platform/Text.h"
#include "tests/package/PackageTest.h"

namespace
{
using TTexts = std::vector<std::string>;

const std::string Clsid = "[HKEY_CLASSES_ROOT\\Acme.Lib\\CLSID]\r\n@=\"{C}\"\r\n";
const std::string TypeLib = "[HKEY_CLASSES_ROOT\\CLSID\\{C}\\TypeLib]\r\n@=\"{New-1}\"\r\n";
const std::string Library = "[HKEY_CLASSES_ROOT\\TypeLib\\{New-1}]\r\n";
const std::string Versions = "[HKEY_CLASSES_ROOT\\TypeLib\\{New-1}\\Help]\r\n"
                             "[HKEY_CLASSES_ROOT\\TypeLib\\{New-1}\\a.1f]\r\n";

/// What a run with all of that says before it turns to the project.
const TTexts Log = {"Checking registry for CLSID...",
                    "Found CLSID : {C}",
                    "Checking for TypeLib Guid...",
                    "Found typelib guid : {New-1}",
                    "Checking for current version of TypeLib in registry  key : TypeLib\\{New-1}",
                    "Processing Key : Help",
                    "Processing Key : a.1f",
                    "Found current version : a.1f",
                    "Found TypeLib information, updating project reference.."};

/// The first lines of that and what comes behind them.
TTexts Begin(std::size_t Count, const TTexts& Rest)
{
    TTexts Result(Log.begin(), Log.begin() + static_cast<std::ptrdiff_t>(Count));
    Result.insert(Result.end(), Rest.begin(), Rest.end());
    return Result;
}

/// A project with a reference among others that are not meant.
std::string Project(const std::string& Attributes, const std::string& Language = "CSHARP")
{
    return "<!-- <Reference> -->\n<VisualStudioProject>\r\n <" + Language +
           "><Build><References>\n"
           "  <Reference Name='Lib' Guid='{Old}' WrapperTool='primary'/>\r\n"
           "  <Reference Name=\"lib\" WrapperTool=\"tlbimp\"/>\n"
           "  <Reference\tWrapperTool = \"tlbimp\" Name = \"Lib\"" +
           Attributes + " />\r\n  <Reference Name='Lib' Guid='{Old}' WrapperTool='tlbimp'/></References></Build></" +
           Language + ">\n</VisualStudioProject>";
}
const std::string Old = Project(" VersionMajor='1' Lcid=\"0\" Guid=\"{Old}\" VersionMinor = \"a\"");
const std::string New = Project(" VersionMajor='10' Lcid=\"0\" Guid=\"{New-1}\" VersionMinor = \"31\"");

struct TRun
{
    TTexts Execute()
    {
        Host.SetRegistry("REGEDIT4\r\n" + Registry);
        const auto Action = Host.Create("TQXDotNetComReferenceFixAction");
        EXPECT_TRUE(SetProperty(*Action, "ProgID", "Acme.Lib") && SetProperty(*Action, "ReferenceName", Name) &&
                    SetProperty(*Action, "ProjectFile", FileName));
        Result = Host.Execute(*Action);
        return Host.Log.Messages;
    }
    [[nodiscard]] std::string Content() const { return Host.Folder.Read("My p/Acme.csproj"); }

    TPackageHost Host;
    std::string Registry = Clsid + TypeLib + Versions;
    std::string Name = "Lib";
    std::string FileName = "my p\\ACME.CsProj";
    bool Result = false;
};
} // namespace

TEST(ComReference, TheCurrentVersionIsTheLargestDecimal)
{
    const std::pair<TTexts, std::string> Cases[] = {
        {{"1.0", "2.0"}, "2.0"},
        {{"1.9", "1.a"}, "1.9"},
        {{"1.1", "1.a", "1.64"}, "1.1"},
        {{"9.0", "a.0", "A.0"}, "a.0"},
        {{"Help", "3", ""}, ""},
        {{"0.0", ".", "x.y"}, ""},
        {{"0.0", "0.1"}, "0.1"},
        {{"1.0", "2.z", "3 .0", "+3.0", "-1.0", "0x3.0", "$3.0"}, "2.z"},
        {{"1.5", "1.6.7"}, "1.5"},
        {{"1.0", "fffffffff.0", "ffffffffffffffffffffffff.ffffffffffffffffffffffff"}, "1.0"},
        {{"1.0", "ffffffff.ffffffff"}, "ffffffff.ffffffff"},
    };
    for (const auto& [Names, Current] : Cases)
        EXPECT_EQ(FindCurrentVersion(Names), Current) << testing::PrintToString(Names);
}

TEST(ComReference, OneElementChangesAndNoOtherByte)
{
    const std::string Old1252 = Text::Replace(Old, "-->", "\xFC\xDF -->");
    const std::string New1252 = Text::Replace(New, "-->", "\xFC\xDF -->");
    const std::string Declaration = "<?xml version='1.0' encoding='Windows-1252'?>\r";
    const std::string Added = " Guid = \"{New-1}\" VersionMajor = \"10\" VersionMinor = \"31\"";
    const struct
    {
        std::string FileName, Before, After;
    } Cases[] = {
        {"a.csproj", Old, New},
        {"a.csproj", New, New},
        {"a.csproj", Old1252, New1252},
        {"a.csproj", Declaration + Old1252, Declaration + New1252},
        {"a.csproj", "\xEF\xBB\xBF" + Old, "\xEF\xBB\xBF" + New},
        {"a.CSPROJ", Project(""), Project(Added)},
        {"a.VBProj", Project("", "VisualBasic"), Project(Added, "VisualBasic")},
        {"a.vjsproj", Project("", "VISUALJSHARP"), Project(Added, "VISUALJSHARP")},
    };
    for (const auto& [FileName, Before, After] : Cases)
    {
        TRun Run;
        Run.FileName = FileName;
        Run.Host.Folder.Write(FileName, Before);
        EXPECT_EQ(Run.Execute(), Begin(Log.size(), {"Project Reference for Lib Updated OK."}));
        EXPECT_TRUE(Run.Result);
        EXPECT_EQ(Run.Host.Folder.Read(FileName), After);
    }
}

TEST(ComReference, AFailureIsToldAndLeavesTheFileAlone)
{
    const std::string All = Clsid + TypeLib + Versions;
    const std::string Failed = "Unable to update reference!";
    const std::string NotFound = "Unable to locate reference in project file!";
    const std::string Error = "Error Loading project file";
    const std::string Refused = "Cannot update project file, it";
    const std::string File = " : my p\\ACME.CsProj";
    const std::string TextOnly = ", only UTF-8 and 8-bit text can be updated" + File;
    const struct
    {
        std::string Registry, Reference, Content;
        std::size_t Steps; ///< that go well
        TTexts Messages;
    } Cases[] = {
        {TypeLib + Versions, "Lib", Old, 1, {"Unable to find ProgID : Acme.Lib in Registry."}},
        {Library + "[HKEY_CLASSES_ROOT\\Acme.Lib\\Clsid]\r\n",
         "Lib",
         Old,
         1,
         {"Found CLSID : ", "Checking for TypeLib Guid...",
          "Unable to find TypeLib Entry for : Acme.Lib in Registry."}},
        {Clsid + Versions, "Lib", Old, 3, {"Unable to find TypeLib Entry for : Acme.Lib in Registry."}},
        {Clsid + "[HKEY_CLASSES_ROOT\\CLSID\\{C}\\TypeLib]\r\n@=\"\"\r\n",
         "Lib",
         Old,
         3,
         {"Found typelib guid : ", "The registry key has no default value : CLSID\\{C}\\TypeLib"}},
        {Clsid + TypeLib, "Lib", Old, 4, {"Unable to find registry key : TypeLib\\{New-1}", Failed}},
        {Clsid + TypeLib + Library, "Lib", Old, 5, {"No version keys found under : TypeLib\\{New-1}", Failed}},
        {Clsid + TypeLib + Text::Replace(Versions, "a.1f", "0.0"),
         "Lib",
         Old,
         6,
         {"Processing Key : 0.0", "Unable to determine current version of TypeLib...", Failed}},
        {All, "LIB", Old, Log.size(), {NotFound}},
        {All, "L'ib", Old, Log.size(), {NotFound}},
        {All, "Lib", Text::Replace(Old, "CSHARP", "VisualBasic"), Log.size(), {NotFound}},
        {All, "Lib", "<a>", Log.size(), {Error, "Premature end of data in tag a line 1"}},
        {All, "Lib", "", Log.size(), {Error, "Document is empty"}},
        {All, "Lib", std::string("\xFF\xFE<\0a\0", 6), Log.size(), {Refused + " holds UTF-16" + TextOnly}},
        {All, "Lib", Old + '\0', Log.size(), {Refused + " holds NUL characters" + TextOnly}},
        // An encoding in which "<" is written otherwise as well.
        {All,
         "Lib",
         "<?xml version='1.0' encoding='UTF-7'?>" + Text::Replace(Old, "<Build>", "<Build>+ADw-x/+AD4-"),
         Log.size(),
         {Refused + "s encoding or layout is not understood" + File}},
    };
    for (const auto& [Registry, Reference, Content, Steps, Messages] : Cases)
    {
        TRun Run;
        Run.Registry = Registry;
        Run.Name = Reference;
        Run.Host.Folder.Write("My p/Acme.csproj", Content);
        EXPECT_EQ(Run.Execute(), Begin(Steps, Messages));
        EXPECT_FALSE(Run.Result);
        EXPECT_EQ(Run.Content(), Content);
    }
}

TEST(ComReference, FilesAreCheckedBeforeTheRegistry)
{
    const std::pair<std::string, std::string> Cases[] = {
        {"missing.bdsproj", "Project type is not supported by this action!"},
        {"my p\\ACME.CsProj", "Cannot update project file, file is read only"},
        {"Missing.csproj", "Project file not found : Missing.csproj"},
    };
    for (const auto& [FileName, Message] : Cases)
    {
        TRun Run;
        Run.FileName = FileName;
        std::filesystem::permissions(Run.Host.Folder.Write("My p/Acme.csproj"), std::filesystem::perms::owner_read);
        EXPECT_EQ(Run.Execute(), TTexts{Message});
        EXPECT_FALSE(Run.Result);
    }
    TRun Run;
    Run.FileName = "%Unknown%";
    EXPECT_EQ(Run.Execute(), TTexts());
    ASSERT_EQ(Run.Host.Log.ExpansionErrors.size(), 1U);
    EXPECT_EQ(Run.Host.Log.ExpansionErrors[0].Label, "ProjectFile");
}

TEST(ComReference, ADryRunOrANeedlessUpdateWritesNothing)
{
    const std::string Bare = Project(" Guid=''");
    const struct
    {
        bool DryRun;
        std::string Content;
        TTexts Messages;
    } Cases[] = {
        {false, New, {"Project Reference for Lib Updated OK."}},
        {true, New, {"Project Reference for Lib is up to date."}},
        {true,
         Bare,
         {"Would set Guid of reference \"Lib\" : \"\" -> \"{New-1}\"",
          "Would add VersionMajor to reference \"Lib\" : \"10\"",
          "Would add VersionMinor to reference \"Lib\" : \"31\"",
          "Project Reference for Lib would be updated; nothing was written."}},
    };
    for (const auto& [DryRun, Content, Messages] : Cases)
    {
        TRun Run;
        Run.Host.Settings.DryRun = DryRun;
        const std::string File = Run.Host.Folder.Write("My p/Acme.csproj", Content);
        std::filesystem::create_hard_link(File, "link");
        EXPECT_EQ(Run.Execute(), Begin(Log.size(), Messages));
        EXPECT_TRUE(Run.Result);
        EXPECT_EQ(Run.Content(), Content);
        EXPECT_EQ(std::filesystem::hard_link_count(File), 2U) << "the file was replaced";
    }
}
