// Runs the cases of every file in data/, whose README.md tells what can stand there.
#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/CommandLines.h"
#include "platform/Text.h"
#include "runtime/scripting/DuktapeEngine.h"
#include "tests/DataFile.h"
#include "tests/package/PackageTest.h"

#include <algorithm>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace
{
using TLines = std::vector<std::string>;

/// Gives a script's last parameter the script's text.
class TFillingEngine final : public IScriptEngine
{
public:
    std::optional<TScriptFailure> Parse(TQXScript& /*Script*/, TScriptingServices& /*Services*/) override { return {}; }
    std::optional<TScriptFailure> Run(TQXScript& Script, TScriptingServices& /*Services*/) override
    {
        std::string Text = Script.Text();
        for (const TQXScriptParam& Param : Script.Params())
            if (const auto* Value = std::get_if<std::string>(&Param.Value()))
                Text = Texts::Replace(Text, '%' + Param.Name() + '%', *Value);
            else if (const auto* Object = std::get_if<TQXPersistent*>(&Param.Value()))
                for (const TQXProperty& Property : (*Object)->Properties())
                    if (Property.Type == TQXPropertyType::String)
                        Text = Texts::Replace(Text, '%' + std::string(Property.Name) + '%',
                                              std::get<std::string>(Property.Read()));
        EXPECT_TRUE(Script.Params().back().IsOutput());
        Script.Params().back().SetValue(Text);
        return std::nullopt;
    }
};

/// What a text of a data file stands for, in UTF-16 if it begins with that word.
std::string Bytes(const std::string& Text)
{
    static const std::string Mark = "UTF-16 ";
    return Text.starts_with(Mark) ? "\xFF\xFE" + Texts::ToUtf16(Unescape(Text.substr(Mark.size())), false)
                                  : Unescape(Text);
}

bool IsExpectation(const std::string& Word)
{
    static const std::set<std::string> Kinds = {"result",  "args",    "arg",       "executable", "starts-in",
                                                "rsp",     "message", "last",      "output",     "error",
                                                "fails",   "finding", "expansion", "exists",     "absent",
                                                "content", "updated", "untouched", "value",      "interprets"};
    return Kinds.contains(Word);
}

/// What a line "also SETTING | SETTING => EXPECTED | EXPECTED" stands for: a case with what its own prepares, and this.
TDataCase Variation(const TDataCase& Case, const TDataLine& Also)
{
    TDataCase Result{Case.File, Case.Name, Also.Line, {}};
    for (const TDataLine& Line : Case.Lines)
        if (Line.Word != "also" && !IsExpectation(Line.Word))
            Result.Lines.push_back(Line);
    const std::string Text = Texts::Replace(Also.Rest, " => ", " | ") + " | ";
    for (std::size_t Start = 0, End = 0; Start < Text.size(); Start = End + 3)
    {
        End = Text.find(" | ", Start);
        const std::string Part = Text.substr(Start, End - Start);
        const std::size_t Blank = std::min(Part.find(' '), Part.size());
        Result.Lines.push_back({Part.substr(0, Blank), Part.substr(std::min(Blank + 1, Part.size())), "", Also.Line});
    }
    return Result;
}

/// One case in a folder and a host of its own.
class TCaseRun
{
public:
    explicit TCaseRun(const TDataCase& Case) : FCase(Case) {}

    void Run()
    {
        FHost.UseStandInTools();
        FHost.Runtime.SetScriptEngineSource([] { return std::make_unique<TFillingEngine>(); });
        for (const TDataLine& Line : FCase.Lines)
            Prepare(Line);
        FHost.SetRegistry("REGEDIT4\r\n" + FRegistry);
        FHost.Variables.SetProjectVariables(FVariables);
        if (!FStored.empty())
            FHost.Runtime.SetOptionsSource([this] { return StoredOptions(); });
        if (FHasVersions)
            FHost.SetDotNetVersions(FVersions);
        for (const TDataLine& Line : Expected("untouched"))
            fs::create_hard_link(Line.Rest, FHost.Folder.Write("kept/folder") + std::to_string(Line.Line));

        const auto Action = FHost.Create(FClass);
        for (const TDataLine& Line : FProperties)
            if (const auto [Name, Value] = SplitSetting(Line.Rest); !SetProperty(*Action, Name, Fill(Value)))
                FCase.Fail(Line, FClass + " does not take " + Name + " = " + Value);
        for (const TDataLine& Line : FScripts)
            SetScript(*Action, Line);
        Check(*Action);
    }

private:
    void Prepare(const TDataLine& Line)
    {
        if (IsExpectation(Line.Word))
            Expect(Line);
        else if (Line.Word == "also")
            return;
        else if (Line.Rest.starts_with('=') && std::isupper(static_cast<unsigned char>(Line.Word[0])))
            FProperties.push_back({"", Line.Word + ' ' + Line.Rest, "", Line.Line});
        else if (!PrepareHost(Line, Fill(Line.Rest)) && !PrepareFile(Line, Fill(Line.Rest)))
            FCase.Fail(Line, "\"" + Line.Word + "\" is neither a property with its value nor a word of data files");
    }

    void Expect(const TDataLine& Line)
    {
        if (Line.Word == "fails")
            FExpected["result"].push_back({"result", "false", "", Line.Line});
        FExpected[Line.Word == "fails" ? "expansion" : Line.Word].push_back(Line);
    }

    bool PrepareHost(const TDataLine& Line, const std::string& Rest)
    {
        if (Line.Word == "action")
            FClass = Rest;
        else if (Line.Word == "var")
            FVariables.push_back(SplitSetting(Rest));
        else if (Line.Word == "option")
            FStored.push_back(Rest);
        else if (Line.Word == "dotnet")
            AddVersion(Rest);
        else if (Line.Word == "registry")
            AddToRegistry(Line);
        else if (Line.Word == "script")
            FScripts.push_back(Line);
        else if (Line.Word == "dry-run")
            FHost.Settings.Plan = &FHost.Plan;
        else if (Line.Word == "follow-ide")
            FHost.Settings.FollowsIDE = Rest != "no";
        else if (Line.Word == "time-limit")
            FHost.Settings.TimeLimit = std::chrono::seconds(std::stoi(Rest));
        else if (Line.Word == "execute")
            FRuns = Rest == "twice" ? 2 : 1;
        else
            return false;
        return true;
    }

    bool PrepareFile(const TDataLine& Line, const std::string& Rest)
    {
        const auto [Name, Value] = SplitSetting(Rest);
        if (Line.Word == "file")
            FHost.Folder.Write(Rest, Texts::Replace(Fill(Line.Text), "\n", "\r\n"));
        else if (Line.Word == "source")
            FHost.Folder.Write(Name, FSources[Name] = Bytes(Value));
        else if (Line.Word == "tool")
        {
            fs::remove(Rest);
            FHost.Folder.Write(Rest, "#!/bin/sh\n" + Fill(Line.Text));
            fs::permissions(Rest, fs::perms::owner_all);
        }
        else if (Line.Word == "folder")
            fs::create_directories(Rest);
        else if (Line.Word == "link")
            fs::create_symlink(Value, Name);
        else if (Line.Word == "remove")
            fs::remove_all(Rest);
        else if (Line.Word == "protect")
            fs::permissions(Rest, fs::perms::owner_read);
        else
            return false;
        return true;
    }

    void AddVersion(const std::string& Text)
    {
        FHasVersions = true;
        const auto [Name, Folders] = SplitSetting(Text);
        const std::size_t End = std::min(Folders.find(';'), Folders.size());
        if (!Name.empty())
            FVersions.push_back({Name, Folders.substr(0, End), Folders.substr(End == Folders.size() ? 0 : End + 1)});
    }

    void AddToRegistry(const TDataLine& Line)
    {
        FRegistry += Fill(Line.Text);
        const auto [Place, Value] = SplitSetting(Line.Rest);
        const std::size_t End = std::min(Place.find('@'), Place.size());
        if (!Place.empty())
            FRegistry += '[' + Place.substr(0, End) + "]\r\n" +
                         (End == Place.size() ? "@" : '"' + Place.substr(End + 1) + '"') + "=\"" +
                         Texts::Replace(Fill(Value), "\\", "\\\\") + "\"\r\n";
    }

    TOptionsFile StoredOptions() const
    {
        TOptionsFile File = TOptionsFile::Parse("options.toml", "");
        for (const std::string& Setting : FStored)
        {
            const auto [Name, Value] = SplitSetting(Setting);
            File.WriteString(Name.substr(0, Name.rfind('.')), Name.substr(Name.rfind('.') + 1), Value);
        }
        return File;
    }

    void SetScript(const TCustomQXAction& Action, const TDataLine& Line)
    {
        const auto [Name, Text] = SplitSetting(Line.Rest);
        TQXScript* Script = Action.GetScriptByName(Name);
        if (!Script)
            return FCase.Fail(Line, FClass + " has no script " + Name);
        Script->SetText(Line.Text.empty() ? Text : Line.Text);
        if (!Line.Text.empty())
            FHost.Runtime.SetScriptEngineSource(
                [] { return std::make_unique<TDuktapeEngine>(std::chrono::minutes(1)); });
    }

    void Check(TCustomQXAction& Action)
    {
        Compare("finding", TPackageHost::Validate(Action));
        const auto Connection = FHost.Connect(Action);
        auto* Tool = dynamic_cast<TQXExecuteAbstractAction*>(&Action);
        const auto Result = Expected("result");
        EXPECT_EQ(Tool && FRuns == 0 ? MakeCommandLine(*Tool) : Execute(Action),
                  Result.empty() || Result.front().Rest == "true");
        const TLines& Messages = FHost.Log.Messages;
        Compare("message", Messages);
        const std::size_t Last = std::min(Expected("last").size(), Messages.size());
        Compare("last", {Messages.end() - static_cast<std::ptrdiff_t>(Last), Messages.end()});
        TLines Labels;
        for (const auto& Error : FHost.Log.ExpansionErrors)
            Labels.push_back(Error.Label);
        Compare("expansion", Labels);
        Compare("output", FHost.Log.OutputLines);
        Compare("error", FHost.Log.ErrorLines);
        if (const auto* Compiler = dynamic_cast<const TQXManagedCompilerAction*>(&Action);
            Compiler && FExpected.contains("rsp"))
            Compare("rsp", Lines(FHost.Folder.Read(Compiler->ResponseFileName)));
        for (const TDataLine& Line : Expected("interprets"))
            if (const auto [Code, Meaning] = SplitSetting(Line.Rest);
                !Tool || Tool->InterpretResult(std::stoi(Code)) != (Meaning == "success"))
                FCase.Fail(Line, Code + " is not " + Meaning);
        for (const TDataLine& Line : Expected("value"))
            CheckValue(Action, Line);
        CheckFiles();
    }

    bool MakeCommandLine(TQXExecuteAbstractAction& Action)
    {
        const auto Builder = CreateCommandLineBuilder();
        const bool Result = Action.BeforeGetCommandLine() && Action.GetCommandLine(*Builder);
        const std::string Executable =
            FExpected.contains("executable") || FExpected.contains("starts-in") ? Action.GetExecutable() : "";
        CompareStart(Builder->GetCommandLineText(), Executable,
                     FExpected.contains("starts-in") ? Action.GetStartingDir(Executable) : "");
        return Result;
    }

    bool Execute(TCustomQXAction& Action)
    {
        bool Result = false;
        try
        {
            for (int Run = 0; Run < std::max(FRuns, 1); ++Run)
                Result = Action.Execute();
        }
        catch (const std::exception& Error)
        {
            FHost.Log.Messages.emplace_back(Error.what());
        }
        if (!FHost.Log.ProcessStarts.empty())
        {
            const auto& Start = FHost.Log.ProcessStarts.back();
            CompareStart(Start.Arguments, Start.Executable, Start.Folder);
        }
        return Result;
    }

    void CompareStart(const std::string& Arguments, const std::string& Executable, const std::string& Folder) const
    {
        Compare("args", {Arguments});
        Compare("arg", CommandLines::Split(Arguments));
        Compare("executable", {Executable});
        Compare("starts-in", Folder.empty() ? TLines() : TLines{Folder});
    }

    /// A property of the action, or CLASS.NAME of an options object.
    void CheckValue(const TQXPersistent& Action, const TDataLine& Line)
    {
        const auto [Name, Text] = SplitSetting(Line.Rest);
        const std::size_t Dot = Name.find('.');
        const TQXPersistent* Object = &Action;
        for (const TQXOptionsRegistration& Options : FHost.Runtime.OptionsServices().Options())
            if (Dot != Name.npos && Options.OptionsClass.ClassName == Name.substr(0, Dot))
                Object = FHost.Runtime.OptionsServices().GetOptions(Options.OptionsClass.Category,
                                                                    Options.OptionsClass.Name);
        const TQXProperty* Property = Object->FindProperty(Name.substr(Dot + 1));
        if (const auto* Options = dynamic_cast<const TQXOptionsObject*>(Object);
            Options && Name.ends_with(".IsModified"))
            EXPECT_EQ(ValueText(Options->IsModified()), Text);
        else if (!Property)
            FCase.Fail(Line, "there is no " + Name);
        else if (ValueText(Property->Read()) != Fill(Text))
            FCase.Fail(Line, Name + " is " + ValueText(Property->Read()));
    }

    void CheckFiles() const
    {
        const auto Fail = [&](bool Holds, const TDataLine& Line, const std::string& Reason) {
            if (!Holds)
                FCase.Fail(Line, Line.Rest + Reason);
        };
        for (const TDataLine& Line : Expected("exists"))
            Fail(FHost.Folder.Exists(Fill(Line.Rest)), Line, " is missing");
        for (const TDataLine& Line : Expected("absent"))
            Fail(!FHost.Folder.Exists(Fill(Line.Rest)), Line, " is there");
        for (const TDataLine& Line : Expected("untouched"))
            Fail(fs::hard_link_count(Line.Rest) == 2 && FHost.Folder.Read(Line.Rest) == FSources.at(Line.Rest), Line,
                 " was written");
        for (const char* Kind : {"updated", "content"})
            for (const TDataLine& Line : Expected(Kind))
            {
                const testing::ScopedTrace Trace(FCase.File.c_str(), Line.Line, Kind);
                const auto [Name, Text] = SplitSetting(Line.Rest);
                const bool IsBytes = Line.Word == "updated";
                EXPECT_EQ(FHost.Folder.Read(Name), IsBytes ? Bytes(Text) : Fill(Text) + "\r\n");
            }
    }

    [[nodiscard]] std::string Fill(const std::string& Text) const
    {
        return Texts::Replace(Texts::Replace(Text, "$DIR", FHost.Folder.Path()), "$BLANK", " ");
    }

    /// What is expected of a kind; a line without text stands for nothing.
    [[nodiscard]] std::vector<TDataLine> Expected(const std::string& Kind) const
    {
        std::vector<TDataLine> Result;
        if (const auto Found = FExpected.find(Kind); Found != FExpected.end())
            for (const TDataLine& Line : Found->second)
                if (!Line.Rest.empty())
                    Result.push_back(Line);
        return Result;
    }

    /// Compares as one text, so that a difference is shown line by line.
    void Compare(const std::string& Kind, TLines Actual) const
    {
        const auto Found = FExpected.find(Kind);
        if (Found == FExpected.end())
            return;
        const auto Join = [](std::string Text, const std::string& Line) { return std::move(Text) + Line + '\n'; };
        std::string Wanted;
        std::size_t Index = 0;
        for (const TDataLine& Line : Expected(Kind))
        {
            std::string Text = Fill(Line.Rest + (Line.Text.empty() ? "" : "\n" + Line.Text));
            Text = Texts::Replace(Line.Text.empty() ? Text : Text.substr(0, Text.size() - 1), "\n", "\r\n");
            if (std::string* Other = Index < Actual.size() ? &Actual[Index] : nullptr; Other && Text.ends_with("..."))
                if (Text.pop_back(), Text.pop_back(), Text.pop_back(), Other->size() > Text.size())
                    Other->resize(Text.size());
            Wanted = Join(Wanted, Text);
            ++Index;
        }
        std::string Given;
        for (const std::string& Line : Actual)
            Given = Join(Given, Line);
        const testing::ScopedTrace Trace(FCase.File.c_str(), Found->second.front().Line, Kind);
        EXPECT_EQ(Wanted, Given);
    }

    const TDataCase& FCase;
    TPackageHost FHost;
    std::string FClass, FRegistry;
    TVariables::TPairs FVariables;
    TLines FStored;
    std::vector<TFakeDotNetVersion> FVersions;
    std::vector<TDataLine> FProperties, FScripts;
    std::map<std::string, std::string> FSources;
    std::map<std::string, std::vector<TDataLine>> FExpected; ///< by kind
    bool FHasVersions = false;
    int FRuns = 0; ///< of the tool
};

class DataFiles : public testing::TestWithParam<std::string>
{
};
} // namespace

TEST_P(DataFiles, GiveWhatTheySay)
{
    for (const TDataCase& Case : ReadCases(GetParam()))
    {
        const testing::ScopedTrace Trace(Case.File.c_str(), Case.Line, Case.Name);
        TCaseRun(Case).Run();
        for (const TDataLine& Line : Case.Lines)
            if (Line.Word == "also")
            {
                const testing::ScopedTrace Place(Case.File.c_str(), Line.Line, Line.Rest);
                TCaseRun(Variation(Case, Line)).Run();
            }
    }
}

INSTANTIATE_TEST_SUITE_P(Package, DataFiles, testing::ValuesIn(FindDataFiles("tests/package/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
INSTANTIATE_TEST_SUITE_P(Basics, DataFiles, testing::ValuesIn(FindDataFiles("tests/basics/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
