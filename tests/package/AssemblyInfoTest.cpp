// Scripts, links and the end of a run in the AssemblyInfo updater. What it makes of sources is in
// data/assemblyinfo*.txt.
#include "host/QXServices.h"
#include "package/sourceupdate/QXAssemblyInfoUpdater.h"
#include "platform/Processes.h"
#include "runtime/scripting/DuktapeEngine.h"
#include "tests/package/PackageTest.h"

#include "gmock/gmock.h"

#include <csignal>

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
} // namespace

TEST(AssemblyInfo, AValueThatNoDeclarationCanHoldIsRefused)
{
    const std::string Before = "[assembly: A(\"x\")]\n";
    for (const std::string& Value : {"a\nb"s, "a\0b"s, "a\rb"s})
    {
        TUpdate Update({"a.cs"}, {"A=\"" + Value + '"'});
        Update.Write("a.cs", Before);
        EXPECT_THROW(Update.Host.Execute(*Update.Action), std::exception);
        EXPECT_EQ(Update.Read("a.cs"), Before);
    }
}

TEST(AssemblyInfo, TheUpdatedTextCanBeWrittenElsewhere)
{
    struct TOwner final : IQXAssemblyInfoCallBack
    {
        void OnProcessFile(const std::string&, IQXAssemblyInfoUpdater&) override {}
        void AssemblyInfoProcessMessage(const std::string&) override {}
        void AssemblyInfoProcessEntry(const std::string&, const std::string&, std::string& Value) override
        {
            Value = "1";
        }
    } Owner;
    const TWorkFolder Folder;
    Folder.Write("a.cs", "a\n[assembly: A(0)]\r\n");
    const auto Updater = NewAssemblyInfoUpdater({.DryRun = true});
    Updater->SetCallBack(Owner);
    EXPECT_TRUE(Updater->ProcessFile("a.cs", true));
    Updater->SaveToFile("b.cs");
    EXPECT_EQ(Folder.Read("a.cs"), "a\n[assembly: A(0)]\r\n");
    EXPECT_EQ(Folder.Read("b.cs"), "a\n[assembly: A(1)]\r\n");
}

TEST(AssemblyInfo, FoldersAreNotLookedThroughByLinks)
{
    TUpdate Update({"*.cs"}, {"A=1"});
    Update.Set("Recurse", "true");
    Update.Write("sub/a.cs", "\n");
    fs::create_directory_symlink("..", "sub/loop");
    EXPECT_THAT(Update.Execute(), ElementsAre("Processing File : sub/a.cs", "Processing new Attributes...",
                                              "Adding Entry : A Value : 1"));
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
