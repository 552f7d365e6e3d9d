// Loads real project files of many public code bases with stand-in tools. They lie beside the source tree; what
// they must give stands in their index, and in data/corpus_expectations.tsv where that does not tell.
#include "tests/package/PackageTest.h"

#include "package/compiler/QXDotNetManagedCompilerAction.h"
#include "platform/Text.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>

namespace fs = std::filesystem;

namespace
{
const fs::path Corpus = fs::path(QUEXLEY_SOURCE_DIR) / "../shared/corpus";

struct TExpectation
{
    std::string File, Configurations;
    int References = 0, Wrappers = 0, Sources = 0, Resources = 0;
    std::string Message; ///< of a project that is refused
};

std::vector<std::vector<std::string>> ReadTable(const fs::path& Path)
{
    std::vector<std::vector<std::string>> Rows;
    std::ifstream Stream(Path);
    for (std::string Line; std::getline(Stream, Line);)
    {
        auto& Row = Rows.emplace_back();
        for (std::size_t Start = 0; Start <= Line.size();)
        {
            const std::size_t End = std::min(Line.find('\t', Start), Line.size());
            Row.push_back(Line.substr(Start, End - Start));
            Start = End + 1;
        }
    }
    return Rows;
}

int Number(const std::string& Text)
{
    return Text.empty() ? 0 : std::stoi(Text);
}

std::map<std::string, TExpectation> ReadExpectations()
{
    std::map<std::string, TExpectation> Result;
    const auto Index = ReadTable(Corpus / "index.tsv");
    for (std::size_t Row = 1; Row < Index.size(); ++Row)
    {
        const auto& Fields = Index[Row];
        Result[Fields.at(0)] = {Fields[0],
                                Fields.at(4),
                                Number(Fields.at(5)),
                                Number(Fields.at(7)),
                                Number(Fields[8]),
                                Number(Fields.at(9)),
                                ""};
    }
    for (const auto& Fields : ReadTable(QUEXLEY_SOURCE_DIR "/tests/package/data/corpus_expectations.tsv"))
    {
        if (Fields.size() != 3)
            continue;
        TExpectation& Expectation = Result[Fields[0]];
        if (Fields[1] == "fails")
            Expectation.Message = Fields[2];
        else if (Fields[1] == "skips")
            Expectation.References -= Number(Fields[2]);
        else if (Fields[1] == "embeds")
            Expectation.Resources = Number(Fields[2]);
        else if (Fields[1] == "compiles")
            Expectation.Sources = Number(Fields[2]);
    }
    return Result;
}

const char* ActionClass(const std::string& File)
{
    static const std::map<std::string, const char*> Classes = {
        {".csproj", "TQXCSProjCompilerAction"},  {".csdproj", "TQXCSProjCompilerAction"},
        {".vbproj", "TQXVBProjCompilerAction"},  {".vbdproj", "TQXVBProjCompilerAction"},
        {".vjsproj", "TQXJSProjCompilerAction"}, {".bdsproj", "TQXBorlandCSBuilderProjCompilerAction"}};
    return Classes.at(Text::Lower(fs::path(File).extension().string()));
}

class TCorpus
{
public:
    TCorpus() { fs::create_directories(FFolder); }

    /// Loads a project in its first configuration. True: its response file is there and complete.
    void Check(const TExpectation& Expectation)
    {
        ++FCount;
        const std::string File = FHost.Folder.Path() + '/' + FFolder + Expectation.File;
        fs::copy_file(Corpus / Expectation.File, File);
        const auto Action = FHost.Create<TQXManagedCompilerAction>(ActionClass(File));
        Action->ProjectFile = Text::Replace(File, "%", "%%");
        Action->LibLocations = "lib";
        Action->ConfigName = FirstConfiguration(*Action, File, Expectation);

        FHost.Log.Messages.clear();
        const auto Connection = FHost.Connect(*Action);
        const bool Loaded = Action->GetCommandLine(*CreateCommandLineBuilder());
        const std::string Last = FHost.Log.Messages.empty() ? "" : FHost.Log.Messages.back();
        EXPECT_EQ(Loaded, Last.starts_with("Command Line : ")) << Last;
        if (Expectation.Wrappers > 0)
            Wait("COM wrappers", "COM reference : ", Expectation, Last);
        else if (Expectation.Resources > 0)
            Wait("resources", "Embedded resource : ", Expectation, Last);
        else if (!Expectation.Message.empty() || Expectation.Sources == 0)
            EXPECT_EQ(Last, Expectation.Message.empty() ? "No Files to Compile!" : Expectation.Message);
        else
            CheckLoaded(Expectation, Lines(FHost.Folder.Read(FFolder + "qxresp.rsp")));
        fs::remove(File);
    }

    void Summarise() const
    {
        std::cout << FCount << " projects, " << FLoaded << " loaded\n";
        for (const auto& [Reason, Files] : FWaiting)
        {
            std::cout << Files.size() << " wait for " << Reason << ":\n";
            for (const std::string& File : Files)
                std::cout << "    " << File << '\n';
        }
    }

private:
    static std::string FirstConfiguration(const TQXManagedCompilerAction& Action, const std::string& File,
                                          const TExpectation& Expectation)
    {
        TStringList Names;
        EXPECT_TRUE(Action.LoadConfigListFromProject(File, Names));
        std::string Joined;
        for (const std::string& Name : Names)
            Joined += (Joined.empty() ? "" : "|") + Name;
        EXPECT_TRUE(Expectation.Configurations.empty() || Joined == Expectation.Configurations) << Joined;
        return Names.IsEmpty() ? "Debug" : Names[0];
    }

    void Wait(const char* Reason, const std::string& Message, const TExpectation& Expectation, const std::string& Last)
    {
        FWaiting[Reason].push_back(Expectation.File);
        EXPECT_TRUE(Last.starts_with(Message)) << Last;
    }

    void CheckLoaded(const TExpectation& Expectation, const std::vector<std::string>& Response)
    {
        ++FLoaded;
        const auto IsSource = [](const std::string& Line) { return Line.starts_with('"') && Line != "\"/lib:lib\""; };
        EXPECT_EQ(std::count_if(Response.begin(), Response.end(), IsSource), Expectation.Sources);
        const auto IsReference = [](const std::string& Line) { return Line.starts_with("Adding Reference : "); };
        EXPECT_EQ(std::count_if(FHost.Log.Messages.begin(), FHost.Log.Messages.end(), IsReference),
                  Expectation.References);
    }

    TPackageHost FHost;
    const std::string FFolder = "1/2/3/4/5/"; ///< deep enough for output folders that lead out of the project's
    int FCount = 0, FLoaded = 0;
    std::map<std::string, std::vector<std::string>> FWaiting;
};
} // namespace

TEST(Corpus, LoadsOrIsRefusedForItsReason)
{
    if (!fs::exists(Corpus / "index.tsv"))
        GTEST_SKIP() << "there are no project files in " << Corpus;
    TCorpus Projects;
    for (const auto& [File, Expectation] : ReadExpectations())
    {
        SCOPED_TRACE(File);
        Projects.Check(Expectation);
    }
    Projects.Summarise();
}
