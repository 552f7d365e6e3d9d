// Runs the cases under data/: blocks of properties with the command line, response file, messages and findings that
// they must give. Lines before the first block count for all of them. A block begins with "case NAME", then come
//     action CLASS              the action; each case has its own
//     Name = value              a property; a string list grows by one line
//     var Name = value          a host variable
//     script NAME = text        a script, which gives its text with %Parameter% and the action's %Property% filled in
//     registry KEY = text       a key's default value; KEY@NAME for a value of that name
//     file PATH                 a file in the work folder, its lines following as "| text"
//     source PATH = text        a file of just these bytes, with \n, \r, \t, \\ and \xFF for what cannot be typed
//     protect PATH              that file is read-only
//     dry-run                   nothing may be written
// and what is expected: result false, args TEXT, rsp LINE, message LINE, last LINE (of the messages), output LINE (of
// tools), finding LABEL: MESSAGE, expansion LABEL, exists PATH, absent PATH, content PATH = text, updated PATH = text
// as with source, untouched PATH, which may not even be written again. Kinds that a case does not name are not looked
// at, but for result, which is true; one without text stands for none of the kind. In all texts $DIR is the work
// folder, in which each action runs, and $BLANK a blank.
#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/Text.h"
#include "runtime/scripting/ScriptEngine.h"
#include "tests/package/PackageTest.h"

#include <algorithm>
#include <fstream>
#include <map>

namespace fs = std::filesystem;

namespace
{
struct TCase
{
    std::string Name;
    int Line = 0;
    std::string Action;
    std::vector<std::pair<std::string, std::string>> Properties;
    TVariables::TPairs Variables, Scripts, Registry, Files, Sources;
    std::vector<std::string> Protected;
    bool DryRun = false;
    std::map<std::string, std::vector<std::string>> Expected; ///< by kind
};

std::pair<std::string, std::string> SplitAt(const std::string& Text, const std::string& Separator)
{
    const auto Place = Text.find(Separator);
    if (Place == std::string::npos && Text.ends_with(" ="))
        return {Text.substr(0, Text.size() - 2), ""};
    if (Place == std::string::npos)
        return {Text, ""};
    return {Text.substr(0, Place), Text.substr(Place + Separator.size())};
}

void ReadLine(TCase& Case, const std::string& Line)
{
    static const std::vector<std::string> Kinds = {"result",  "args",      "rsp",    "message", "output",
                                                   "finding", "expansion", "exists", "absent",  "content",
                                                   "updated", "untouched", "last"};
    const auto [Word, Rest] = SplitAt(Line, " ");
    if (Word == "|")
        Case.Files.back().second += Rest + "\r\n";
    else if (Word == "action")
        Case.Action = Rest;
    else if (Word == "var")
        Case.Variables.push_back(SplitAt(Rest, " = "));
    else if (Word == "script")
        Case.Scripts.push_back(SplitAt(Rest, " = "));
    else if (Word == "registry")
        Case.Registry.push_back(SplitAt(Rest, " = "));
    else if (Word == "file")
        Case.Files.emplace_back(Rest, "");
    else if (Word == "source")
        Case.Sources.push_back(SplitAt(Rest, " = "));
    else if (Word == "protect")
        Case.Protected.push_back(Rest);
    else if (Word == "dry-run")
        Case.DryRun = true;
    else if (std::find(Kinds.begin(), Kinds.end(), Word) != Kinds.end())
        Case.Expected[Word].push_back(Rest);
    else
        Case.Properties.push_back(SplitAt(Line, " = "));
}

std::vector<TCase> ReadCases(const std::string& FileName)
{
    std::ifstream Stream(std::string(QUEXLEY_SOURCE_DIR "/tests/package/data/") + FileName);
    EXPECT_TRUE(Stream) << FileName << " cannot be read";
    std::vector<TCase> Cases;
    TCase Common;
    int Number = 0;
    for (std::string Line; std::getline(Stream, Line);)
    {
        ++Number;
        if (Line.starts_with("case "))
        {
            Cases.emplace_back(Common).Name = Line.substr(5);
            Cases.back().Line = Number;
        }
        else if (!Line.empty() && !Line.starts_with("#"))
            ReadLine(Cases.empty() ? Common : Cases.back(), Line);
    }
    return Cases;
}

/// The bytes that a text of a case stands for.
std::string Bytes(std::string_view Text)
{
    static const std::map<char, char> Escapes = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'\\', '\\'}};
    std::string Result;
    for (std::size_t Index = 0; Index < Text.size(); ++Index)
        if (Text[Index] != '\\')
            Result += Text[Index];
        else if (Text.at(++Index) == 'x')
        {
            Result += static_cast<char>(std::stoi(std::string(Text.substr(Index + 1, 2)), nullptr, 16));
            Index += 2;
        }
        else
            Result += Escapes.at(Text[Index]);
    return Result;
}

/// Gives a script's last parameter the script's text.
class TFillingEngine final : public IScriptEngine
{
public:
    std::optional<TScriptFailure> Run(TQXScript& Script, TScriptingServices& /*Services*/) override
    {
        std::string Text = Script.Text();
        for (const TQXScriptParam& Param : Script.Params())
            if (const auto* Value = std::get_if<std::string>(&Param.Value()))
                Text = Text::Replace(Text, '%' + Param.Name() + '%', *Value);
            else if (const auto* Object = std::get_if<TQXPersistent*>(&Param.Value()))
                for (const TQXProperty& Property : (*Object)->Properties())
                    if (Property.Type == TQXPropertyType::String)
                        Text = Text::Replace(Text, '%' + std::string(Property.Name) + '%',
                                             std::get<std::string>(Property.Read()));
        EXPECT_TRUE(Script.Params().back().IsOutput());
        Script.Params().back().SetValue(Text);
        return std::nullopt;
    }
};

/// One case in a folder and a host of its own.
class TCaseRun
{
public:
    explicit TCaseRun(const TCase& Case) : FCase(Case) {}

    void Run()
    {
        Prepare();
        const auto Action = FHost.Create(FCase.Action);
        for (const auto& [Name, Value] : FCase.Properties)
            EXPECT_TRUE(SetProperty(*Action, Name, Fill(Value))) << Name << " = " << Value;
        for (const auto& [Name, Text] : FCase.Scripts)
            Action->GetScriptByName(Name)->SetText(Text);

        Compare("finding", TPackageHost::Validate(*Action));
        const auto Connection = FHost.Connect(*Action);
        auto* Tool = dynamic_cast<TQXExecuteAbstractAction*>(Action.get());
        EXPECT_EQ(Tool ? MakeCommandLine(*Tool) : Execute(*Action), !FCase.Expected.contains("result"));
        Compare("message", FHost.Log.Messages);
        const std::size_t Last = std::min(Expected("last").size(), FHost.Log.Messages.size());
        Compare("last", {FHost.Log.Messages.end() - static_cast<std::ptrdiff_t>(Last), FHost.Log.Messages.end()});
        std::vector<std::string> Labels;
        for (const auto& Error : FHost.Log.ExpansionErrors)
            Labels.push_back(Error.Label);
        Compare("expansion", Labels);
        Compare("output", FHost.Log.OutputLines);
        if (const auto* Compiler = dynamic_cast<const TQXManagedCompilerAction*>(Action.get());
            Compiler && FCase.Expected.contains("rsp"))
            Compare("rsp", Lines(FHost.Folder.Read(Compiler->ResponseFileName)));
        CompareFiles();
    }

private:
    bool MakeCommandLine(TQXExecuteAbstractAction& Action) const
    {
        const auto Builder = CreateCommandLineBuilder();
        const bool Result = Action.BeforeGetCommandLine() && Action.GetCommandLine(*Builder);
        Compare("args", {Builder->GetCommandLineText()});
        return Result;
    }

    bool Execute(TCustomQXAction& Action)
    {
        try
        {
            return Action.Execute();
        }
        catch (const std::exception& Error)
        {
            FHost.Log.Messages.emplace_back(Error.what());
            return false;
        }
    }

    void Prepare()
    {
        FHost.Settings.DryRun = FCase.DryRun;
        for (const auto& [Name, Text] : FCase.Sources)
            FHost.Folder.Write(Name, Bytes(Fill(Text)));
        for (const std::string& Name : FCase.Protected)
            fs::permissions(Name, fs::perms::owner_read);
        for (const std::string& Name : Expected("untouched"))
            fs::create_hard_link(Name, FHost.Folder.Write("kept/folder") + std::to_string(fs::hash_value(Name)));
        TVariables::TPairs Variables = FCase.Variables;
        for (auto& [Name, Value] : Variables)
            Value = Fill(Value);
        FHost.Variables.SetProjectVariables(Variables);
        for (const auto& [Name, Content] : FCase.Files)
            FHost.Folder.Write(Name, Fill(Content));
        FHost.Runtime.SetScriptEngineSource([] { return std::make_unique<TFillingEngine>(); });
        FHost.UseStandInTools();
        std::string Registry = "REGEDIT4\r\n";
        for (const auto& [Place, Value] : FCase.Registry)
        {
            const auto [Key, Name] = SplitAt(Place, "@");
            Registry += '[' + Key + "]\r\n" + (Name.empty() ? "@" : '"' + Name + '"') + "=\"" +
                        Text::Replace(Fill(Value), "\\", "\\\\") + "\"\r\n";
        }
        FHost.SetRegistry(Registry);
    }

    std::string Fill(const std::string& Text) const
    {
        return Text::Replace(Text::Replace(Text, "$DIR", FHost.Folder.Path()), "$BLANK", " ");
    }

    std::vector<std::string> Expected(const std::string& Kind) const
    {
        std::vector<std::string> Result;
        if (const auto Found = FCase.Expected.find(Kind); Found != FCase.Expected.end())
            for (const std::string& Text : Found->second)
                if (!Text.empty())
                    Result.push_back(Fill(Text));
        return Result;
    }

    void Compare(const std::string& Kind, const std::vector<std::string>& Actual) const
    {
        if (!FCase.Expected.contains(Kind))
            return;
        EXPECT_EQ(Actual, Expected(Kind)) << "(" << Kind << ")";
    }

    void CompareFiles() const
    {
        for (const std::string& Name : Expected("exists"))
            EXPECT_TRUE(FHost.Folder.Exists(Name)) << Name;
        for (const std::string& Name : Expected("absent"))
            EXPECT_FALSE(FHost.Folder.Exists(Name)) << Name;
        for (const std::string& Item : Expected("updated"))
        {
            const auto [Name, Text] = SplitAt(Item, " = ");
            EXPECT_EQ(FHost.Folder.Read(Name), Bytes(Text)) << Name;
        }
        const auto Untouched = Expected("untouched");
        for (const std::string& Name : Untouched)
            EXPECT_EQ(fs::hard_link_count(Name), 2U) << Name << " was replaced";
        for (const auto& [Name, Text] : FCase.Sources)
        {
            const bool Stays = std::find(Untouched.begin(), Untouched.end(), Name) != Untouched.end();
            EXPECT_TRUE(!Stays || FHost.Folder.Read(Name) == Bytes(Fill(Text))) << Name << " was written";
        }
        for (const std::string& Item : Expected("content"))
        {
            const auto [Name, Content] = SplitAt(Item, " = ");
            EXPECT_EQ(FHost.Folder.Read(Name), Content + "\r\n") << Name;
        }
    }

    const TCase& FCase;
    TPackageHost FHost;
};

class DataFiles : public testing::TestWithParam<const char*>
{
};
} // namespace

TEST_P(DataFiles, GiveWhatTheySay)
{
    const auto Cases = ReadCases(GetParam());
    EXPECT_FALSE(Cases.empty());
    for (const TCase& Case : Cases)
    {
        SCOPED_TRACE(std::string(GetParam()) + ':' + std::to_string(Case.Line) + ": " + Case.Name);
        TCaseRun(Case).Run();
    }
}

INSTANTIATE_TEST_SUITE_P(Package, DataFiles,
                         testing::Values("gac.txt", "csharp.txt", "vbnet.txt", "jsharp.txt", "projects.txt",
                                         "references.txt", "wrappers.txt", "resources.txt", "assemblyinfo.txt",
                                         "assemblyinfo_added.txt", "assemblyinfo_files.txt", "comreferences.txt"),
                         [](const auto& Info) {
                             const std::string Name = Info.param;
                             return Name.substr(0, Name.find('.'));
                         });
