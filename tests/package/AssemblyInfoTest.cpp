// What the AssemblyInfo updater makes of source files, and what it leaves alone.
#include "host/QXServices.h"
#include "platform/Processes.h"
#include "runtime/scripting/DuktapeEngine.h"
#include "tests/package/PackageTest.h"

#include "gmock/gmock.h"

#include <csignal>
#include <sys/stat.h>

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::ElementsAre;

namespace
{
using TTexts = std::vector<std::string>;

/// A run of the action on files of its own.
struct TUpdate
{
    explicit TUpdate(const TTexts& Selection, const TTexts& Attributes = {})
        : Action(Host.Create("TQXAssemblyInfoUpdaterAction"))
    {
        Host.Runtime.SetScriptEngineSource([] { return std::make_unique<TDuktapeEngine>(std::chrono::seconds(60)); });
        for (const std::string& Line : Selection)
            Set("Selection", Line);
        for (const std::string& Line : Attributes)
            Set("Attributes", Line);
        Set("BackupFiles", "false");
    }
    void Set(const std::string& Name, const std::string& Value) const
    {
        EXPECT_TRUE(SetProperty(*Action, Name, Value)) << Name;
    }
    /// The messages of a run.
    TTexts Execute(bool Succeeds = true)
    {
        Host.Log.Messages.clear();
        EXPECT_EQ(Host.Execute(*Action), Succeeds);
        return Host.Log.Messages;
    }
    void Write(const std::string& Name, const std::string& Content) const { Host.Folder.Write(Name, Content); }
    [[nodiscard]] std::string Read(const std::string& Name) const { return Host.Folder.Read(Name); }

    TPackageHost Host;
    std::unique_ptr<TCustomQXAction> Action;
};

const TTexts TitleAndFlag = {"assemblytitle=\"New\"", "ComVisible=true"};
} // namespace

TEST(AssemblyInfo, RewritesDeclarationsInTheirForm)
{
    const struct
    {
        std::string File, Before, After;
    } Cases[] = {
        {"a.cs", "[assembly: AssemblyTitle(\"x\")]", "[assembly: AssemblyTitle(\"New\")]"},
        {"a.cs", "\t [ Assembly :\tAssemblyTitle( @\"x\" )  ]; // [c]\n",
         "[Assembly: AssemblyTitle(@\"New\") ]; // [c]\n"},
        {"a.cs", "[assembly:ComVisible(  false)]\r\n", "[assembly: ComVisible(true)]\r\n"},
        {"a.cs", "[assembly: ComVisible(typeof(X))] // (c) d\n", "[assembly: ComVisible(true) d\n"},
        {"a.cs", "[assembly: AssemblyTitle(\"a\"), ComVisible(x)]\n",
         "[assembly: AssemblyTitle(\"New\"), ComVisible(x)]\n"},
        {"a.cs", "\xEF\xBB\xBF[assembly: AssemblyTitle(\"\")]\r1\r\n2\n\r3",
         "\xEF\xBB\xBF[assembly: AssemblyTitle(\"New\")]\r1\r\n2\n\r3"},
        {"a.cs", "// \xFC\n[assembly: AssemblyTitle(\"\xE4\")] // \xDF",
         "// \xFC\n[assembly: AssemblyTitle(\"New\")] // \xDF"},
        // Each entry goes to the first declaration of its name.
        {"a.cs", "[assembly: AssemblyTitle(\"1\")]\n[assembly: AssemblyTitle(\"2\")]\n",
         "[assembly: AssemblyTitle(\"New\")]\n[assembly: AssemblyTitle(\"2\")]\n"},
        {"a.vb", "<Assembly: AssemblyTitle(\"x\")> ' c", "<Assembly: AssemblyTitle(\"New\")> ' c"},
        {"a.vb", "  <assembly:ASSEMBLYTITLE(\"x\")>", "<assembly: ASSEMBLYTITLE(\"New\")>"},
        {"a.cpp", "[assembly:AssemblyTitle(\"x\")];", "[assembly: AssemblyTitle(\"New\")];"},
        {"a.jsl", "/**   @ASSEMBLY AssemblyTitle(\"x\")  */", "/** @ASSEMBLY AssemblyTitle(\"New\") */"},
        {"a.pas", "[assembly: AssemblyTitle('x')]\nImplementation \n[assembly: ComVisible(x)]",
         "[assembly: AssemblyTitle('New')]\nImplementation \n[assembly: ComVisible(x)]"},
        // Not closed in their line: what follows is not joined.
        {"a.cs", "[assembly: AssemblyTitle(\"x\n\")]", "[assembly: AssemblyTitle(\"New\")\n\")]"},
        {"a.cs", "[assembly: ComVisible(x\n)]", "[assembly: ComVisible(true)x\n)]"},
    };
    for (const auto& [File, Before, After] : Cases)
    {
        TUpdate Update({File}, TitleAndFlag);
        Update.Set("UpdateOnly", "true");
        Update.Write(File, Before);
        Update.Execute();
        EXPECT_EQ(Update.Read(File), After) << Before;
    }
}

TEST(AssemblyInfo, LeavesAloneWhatIsNoDeclarationOrNeedsNoChange)
{
    const std::string Untouched = "// [assembly: AssemblyTitle(\"x\")]\n"
                                  "a [assembly: AssemblyTitle(\"x\")]\r\n"
                                  "[module: AssemblyTitle(\"x\")]\n"
                                  "[AssemblyTitle(\"x\")]\n"
                                  "[STAThread]\r"
                                  "[assemblyx: AssemblyTitle(\"x\")]\n"
                                  "[assembly: AssemblyTitle (\"x\")]\n"
                                  "/* @assembly AssemblyTitle(\"x\") */\n"
                                  "/**\n@assembly AssemblyTitle(\"x\") */\n"
                                  "  [assembly:   Other(\"\xE4\")]  \n"
                                  "[assembly: ComVisible(true)]\n"
                                  "[assembly:";
    TUpdate Update({"a.cs"}, TitleAndFlag);
    Update.Set("UpdateOnly", "true");
    Update.Write("a.cs", Untouched);
    fs::create_hard_link("a.cs", "link");
    EXPECT_THAT(Update.Execute(), ElementsAre("Processing File : a.cs", "Setting Attribute : ComVisible Value : true"));
    EXPECT_EQ(Update.Read("a.cs"), Untouched);
    EXPECT_EQ(fs::hard_link_count("a.cs"), 2U) << "the file was written";
}

TEST(AssemblyInfo, AddsWhatAFileLacks)
{
    const struct
    {
        std::string File, Before, Added, Behind;
    } Cases[] = {
        // In the form of the file's last declaration.
        {"a.cs", "[assembly: A(\"x\")] // c\n",
         "#region Assembly Information Added By Quexley\n[assembly: N(\"v\")] // c\n[assembly: F(1)] // "
         "c\n#endregion\n",
         ""},
        {"a.vb", "<ASSEMBLY: A(x)>\r",
         "#region \"Assembly Information Added By Quexley\"\r<ASSEMBLY: N(\"v\")>\r<ASSEMBLY: F(1)>\r#end region\r",
         ""},
        {"a.cpp", "[assembly:A(\"x\")];\n",
         "// Assembly Information Added By Quexley\n[assembly: NAttribute(\"v\")];\n[assembly: FAttribute(1)];\n// End "
         "Assembly Information Added By Quexley\n",
         ""},
        {"a.jsl", "/** @assembly A(\"x\") */", "\r\n/** @assembly N(\"v\") */\r\n/** @assembly F(1) */\r\n", ""},
        {"a.cs", "[assembly: A(\"x\"\n)]",
         "\n#region Assembly Information Added By Quexley\n[assembly: N(\"v\")]\n[assembly: F(1)]\n#endregion\n", ""},
        // In that of the language.
        {"a.cs", "using System;",
         "\r\n#region Assembly Information Added By Quexley\r\n[assembly: N(\"v\")]\r\n[assembly: "
         "F(1)]\r\n#endregion\r\n",
         ""},
        {"a.VB", "' x\n",
         "#region \"Assembly Information Added By Quexley\"\n<Assembly: N(\"v\")>\n<Assembly: F(1)>\n#end region\n",
         ""},
        {"a.cpp", "\n",
         "// Assembly Information Added By Quexley\n[assembly: NAttribute(\"v\")];\n[assembly: FAttribute(1)];\n// End "
         "Assembly Information Added By Quexley\n",
         ""},
        {"a.jsl", "\xEF\xBB\xBFx\n", "/** @assembly N(\"v\") */\n/** @assembly F(1) */\n", ""},
        // Before the end word of a Pascal file and the attribute above it.
        {"a.pas", "unit a;\n[assembly: A('x')]\n\n",
         "{$REGION 'Program/Assembly Information Added By Quexley'}\n[assembly: N('v')]\n[assembly: "
         "F(1)]\n{$ENDREGION}\n",
         "implementation\n[assembly: N('x')]\nend."},
        {"a.dpr", "program a;\r\n",
         "{$REGION 'Program/Assembly Information Added By Quexley'}\r\n[assembly: N('v')]\r\n[assembly: "
         "F(1)]\r\n{$ENDREGION}\r\n",
         "[STAThread]\r\nBEGIN\r\nend.\r\n"},
        {"a.dpk", "",
         "{$REGION 'Program/Assembly Information Added By Quexley'}\n[assembly: N('v')]\n[assembly: "
         "F(1)]\n{$ENDREGION}\n",
         "end.\n"},
        {"a.pas", "no end word",
         "\r\n{$REGION 'Program/Assembly Information Added By Quexley'}\r\n[assembly: N('v')]\r\n[assembly: "
         "F(1)]\r\n{$ENDREGION}\r\n",
         ""},
    };
    for (const auto& [File, Before, Added, Behind] : Cases)
    {
        TUpdate Update({File}, {"N='v'", "", "F=1", "n=\"v\"", "N=\"v\""});
        Update.Write(File, Before + Behind);
        Update.Execute();
        EXPECT_EQ(Update.Read(File), Before + Added + Behind) << Before;
    }
}

TEST(AssemblyInfo, TheFormOfAnEarlierFileIsWrittenAsThisOneIs)
{
    TUpdate Update({"old.cs", "new.cs", "none.vb"}, {"N=1"});
    Update.Write("old.cs", "[assembly: A(\"x\")] // f\xFCr\n");
    Update.Write("new.cs", "// für\n");
    Update.Write("none.vb", "' x\n");
    Update.Execute();
    EXPECT_THAT(Update.Read("new.cs"), testing::HasSubstr("\n[assembly: N(1)] // für\n"));
    EXPECT_THAT(Update.Read("none.vb"), testing::HasSubstr("\n[assembly: N(1)] // für\n"));
}

TEST(AssemblyInfo, TellsWhatItDoesAndADryRunWhatItWould)
{
    const std::string Content =
        "[assembly:A(\"1\")]\n [assembly: B(\"x\")]\n[assembly: C(\"\xFC\")]\n[assembly: D(\"x\"\n";
    const TTexts Attributes = {"A=%Version%", "B=\"x\"", "C=", "D=\"d\"", "E='e'"};
    TUpdate Update({"%Dir%\\s.cs"}, Attributes);
    Update.Host.Variables.SetProjectVariables({{"Version", "\"2\""}, {"Dir", Update.Host.Folder.Path()}});
    Update.Set("BackupFiles", "true");
    Update.Write("s.cs", Content);
    const std::string Warning =
        "Warning - D in line 4 has no parenthesis behind its value, see whether the line still is right";
    const std::string Heading = "Processing File : " + Update.Host.Folder.Path() + "\\s.cs";

    Update.Host.Settings.DryRun = true;
    EXPECT_THAT(Update.Execute(), ElementsAre(Heading, "Would set Attribute : A Value : \"1\" -> \"2\"",
                                              "Would change the layout of Attribute : B Value : \"x\"",
                                              "Would set Attribute : C Value : \"ü\" -> \"\"",
                                              "Would set Attribute : D Value : \"x\" -> \"d\"", Warning,
                                              "Processing new Attributes...", "Would add Entry : E Value : \"e\""));
    EXPECT_EQ(Update.Read("s.cs"), Content);
    EXPECT_FALSE(Update.Host.Folder.Exists("s.cs.bak"));

    Update.Host.Settings.DryRun = false;
    EXPECT_THAT(Update.Execute(),
                ElementsAre(Heading, "Setting Attribute : A Value : \"2\"", "Setting Attribute : B Value : \"x\"",
                            "Setting Attribute : C Value : \"\"", "Setting Attribute : D Value : \"d\"", Warning,
                            "Processing new Attributes...", "Adding Entry : E Value : \"e\""));
    EXPECT_EQ(Update.Read("s.cs.bak"), Content);
}

TEST(AssemblyInfo, SelectsFilesByNamesAndMasks)
{
    TUpdate Update({"Src\\*.cs", "src/b.vb", "src/[!x]?.cs"}, {"A=1"});
    for (const char* Name : {"src/B.CS", "src/a.cs", "src/x1.cs", "src/y1.cs", "src/sub/d.cs", "src/b.vb", "src/c.txt"})
        Update.Write(Name, "\n");
    fs::create_directory_symlink(".", "src/sub/loop");
    const TTexts Here = {"src/B.CS", "src/a.cs", "src/x1.cs", "src/y1.cs"};
    const auto Headings = [&Update](bool Succeeds) {
        TTexts Result;
        for (const std::string& Message : Update.Execute(Succeeds))
            if (Message.starts_with("Processing File : "))
                Result.push_back(Message.substr(18));
        return Result;
    };
    EXPECT_THAT(Headings(true), ElementsAre("src/B.CS", "src/a.cs", "src/x1.cs", "src/y1.cs", "src/b.vb", "src/y1.cs"));
    Update.Set("Recurse", "true");
    Update.Set("Selection", "none/*.cs");
    EXPECT_THAT(Headings(true),
                ElementsAre("src/B.CS", "src/a.cs", "src/x1.cs", "src/y1.cs", "src/sub/d.cs", "src/b.vb", "src/y1.cs"));
    // The run ends at the first file that fails.
    Update.Set("Selection", "None\\x.cs");
    Update.Set("Selection", "src/c.txt");
    EXPECT_EQ(Headings(false).back(), "None\\x.cs");
    EXPECT_EQ(Update.Host.Log.Messages.back(), "File : None\\x.cs- does not exist!");
    EXPECT_EQ(Update.Read("src/c.txt"), "\n");
    Update.Set("Selection", "%Unknown%");
    EXPECT_TRUE(Headings(false).empty());
    EXPECT_THAT(TPackageHost::Validate(*TUpdate({}).Action),
                ElementsAre("Files: No files have been added for updating"));
}

TEST(AssemblyInfo, FilesThatCannotBeUpdatedStayWhole)
{
    const std::string Good = "[assembly: AssemblyTitle(\"x\")]\n";
    const struct
    {
        std::string Content;
        mode_t Mode;
        TTexts Messages;
    } Cases[] = {
        {Good, 0444, {"File : a.cs- is read only!"}},
        {"", 0644, {}},
        {"\xEF\xBB\xBF", 0644, {}},
        {"\xFF\xFE[\0"s, 0644, {"File : a.cs- holds UTF-16, only UTF-8 and 8-bit text can be updated!"}},
        {"\xFE\xFF\0["s, 0644, {"File : a.cs- holds UTF-16, only UTF-8 and 8-bit text can be updated!"}},
        {"\xFF\xFE\0\0[\0\0\0"s, 0644, {"File : a.cs- holds UTF-32, only UTF-8 and 8-bit text can be updated!"}},
        {"\0\0\xFE\xFF\0\0\0["s, 0644, {"File : a.cs- holds UTF-32, only UTF-8 and 8-bit text can be updated!"}},
        {Good + '\0', 0644, {"File : a.cs- holds NUL characters, only UTF-8 and 8-bit text can be updated!"}},
    };
    for (const auto& [Content, Mode, Messages] : Cases)
    {
        TUpdate Update({"a.cs", "b.cs"}, TitleAndFlag);
        Update.Write("a.cs", Content);
        Update.Write("b.cs", Good);
        fs::permissions("a.cs", fs::perms{Mode});
        TTexts Expected = Messages;
        Expected.insert(Expected.begin(), "Processing File : a.cs");
        EXPECT_EQ(Update.Execute(false), Expected);
        EXPECT_EQ(Update.Read("a.cs"), Content);
        EXPECT_EQ(Update.Read("b.cs"), Good);
    }
    // Values that no declaration, or not this file, can hold.
    for (const std::string& Value : {"a\nb"s, "a\0b"s, "日本"s})
    {
        TUpdate Update({"a.cs"}, {"AssemblyTitle=\"" + Value + '"'});
        Update.Write("a.cs", Good + "// \xFC");
        EXPECT_THROW(Update.Host.Execute(*Update.Action), std::exception);
        EXPECT_EQ(Update.Read("a.cs"), Good + "// \xFC");
    }
}

TEST(AssemblyInfo, ScriptsSeeFilesAndDeclarations)
{
    TUpdate Update({"*.cs"}, {"Gone=1", "AssemblyVersion=\"1.0\""});
    Update.Write("a.cs", "// \xFC\n[assembly: AssemblyVersion(\"0\")]\n[assembly: "
                         "AssemblyTitle(\"M\xFCller\")]\n[assembly: Same(\"\x84\x8D\")]");
    Update.Write("b.cs", "[assembly: AssemblyTitle(\"x\")]\n");
    Update.Action->GetScriptByName("OnProcessFile")
        ->SetText(
            "AssemblyInfo.RemoveEntry('gone'); if (FileName == 'a.cs') AssemblyInfo.AddEntry('Extra', FileName, true);"
            "Action.UpdateOnly = false;");
    Update.Action->GetScriptByName("OnProcessEntry")
        ->SetText(
            "Action.SendMessage(FileName + ' ' + EntryName + '=' + EntryValue);"
            "if (EntryName == 'AssemblyTitle') EntryValue += '€'; if (EntryValue == '1.0') EntryValue = '1.0.7';");
    EXPECT_THAT(Update.Execute(),
                ElementsAre("Processing File : a.cs", "a.cs AssemblyVersion=1.0",
                            "Setting Attribute : AssemblyVersion Value : \"1.0.7\"", "a.cs AssemblyTitle=Müller",
                            "Setting Attribute : AssemblyTitle Value : \"Müller€\"", "a.cs Same=„\u008D",
                            "Processing new Attributes...", "Adding Entry : Extra Value : \"a.cs\"",
                            "Processing File : b.cs", "b.cs AssemblyTitle=x",
                            "Setting Attribute : AssemblyTitle Value : \"x€\"", "Processing new Attributes...",
                            "Adding Entry : AssemblyVersion Value : \"1.0\""));
    EXPECT_EQ(Update.Read("a.cs"),
              "// \xFC\n[assembly: AssemblyVersion(\"1.0.7\")]\n[assembly: AssemblyTitle(\"M\xFCller\x80\")]\n"
              "[assembly: Same(\"\x84\x8D\")]\n#region Assembly Information Added By Quexley\n"
              "[assembly: Extra(\"a.cs\")]\n#endregion\n");
    // A script that fails is reported, and the file is updated without it.
    Update.Action->GetScriptByName("OnProcessFile")->SetText("throw 1");
    Update.Action->GetScriptByName("OnProcessEntry")->SetText("EntryValue = 'y'; throw 2");
    Update.Write("b.cs", "[assembly: AssemblyVersion(\"0\")]\n");
    Update.Execute();
    EXPECT_EQ(Update.Read("b.cs"),
              "[assembly: AssemblyVersion(\"1.0\")]\n#region Assembly Information Added By Quexley\n"
              "[assembly: Gone(1)]\n#endregion\n");
    EXPECT_FALSE(Update.Host.Log.ScriptErrors.empty());
}

TEST(AssemblyInfo, FilesReadAheadAreTheOnesThatAreThere)
{
    // The same file again and again, under three names, among enough others for files to be read ahead.
    TTexts Selection;
    for (int Index = 0; Index < 60; ++Index)
        Selection.insert(Selection.end(), {"other.cs", "a.cs", "link.cs", "SUB\\..\\A.cs"});
    TUpdate Update(Selection);
    Update.Write("a.cs", "[assembly: Count(0)]");
    Update.Write("other.cs", "x");
    Update.Write("sub/x", "");
    fs::create_symlink("a.cs", "link.cs");
    Update.Action->GetScriptByName("OnProcessEntry")->SetText("EntryValue = String(Number(EntryValue) + 1)");
    Update.Execute();
    EXPECT_EQ(Update.Read("a.cs"), "[assembly: Count(180)]");
    EXPECT_TRUE(fs::is_symlink("link.cs"));
}

TEST(AssemblyInfo, AFileWhoseScriptIsCutOffByTheEndOfTheRunStaysAsItWas)
{
    const std::string Before = "[assembly: A(0)]\n[assembly: B(0)]";
    TUpdate Update({"a.cs", "b.cs"}, {"A=1"});
    for (const char* Name : {"a.cs", "b.cs"})
        Update.Write(Name, Before);
    QXScriptingServices().RegisterGlobal("Stop", []() -> TQXVariant {
        Termination::Request(SIGTERM);
        return true;
    });
    Update.Action->GetScriptByName("OnProcessEntry")->SetText("if (EntryName == 'B') { Stop; while (true) ; }");
    EXPECT_EQ(Update.Execute(false).size(), 2U);
    Termination::Reset();
    EXPECT_EQ(Update.Read("a.cs"), Before);
    EXPECT_EQ(Update.Read("b.cs"), Before);
}
