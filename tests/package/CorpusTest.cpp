// Loads real project files of many public code bases with stand-in tools. They lie beside the source tree; what
// they must give stands in their index, and in data/corpus_expectations.tsv where that does not tell.
#include "tests/package/PackageTest.h"

#include "package/compiler/QXProjectLoader.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>

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

/// A project file as the tests read it by themselves; false for one that is no XML.
bool Parse(const fs::path& File, TXmlDocument& Document)
{
    return Document.LoadFromText(RepairAmpersands(Text::Decode(Files::Read(File.string()))));
}

/// Registers what the COM references of all projects name, libraries and wrappers of their makers alike.
std::string ComRegistry(const std::string& Folder)
{
    std::ostringstream Result;
    Result << "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Fusion]\r\n\"CacheLocation\"=\"" << Folder
           << "/GAC/\"\r\n";
    for (const fs::directory_entry& File : fs::directory_iterator(Corpus))
    {
        TXmlDocument Document;
        if (!File.path().extension().string().ends_with("proj") || !Parse(File.path(), Document))
            continue;
        for (const TXmlElement& Reference : Document.DocumentElement().SelectNodes("//Reference[@WrapperTool]"))
        {
            std::ostringstream Key;
            Key << "[HKEY_CLASSES_ROOT\\TypeLib\\" << Reference.Attribute("Guid") << '\\'
                << Reference.Attribute("VersionMajor") << '.' << Reference.Attribute("VersionMinor");
            Result << Key.str() << "]\r\n\"PrimaryInteropAssemblyName\"=\"x, Version=1, PublicKeyToken=2\"\r\n"
                   << Key.str() << '\\' << Reference.Attribute("Lcid") << "\\win32]\r\n@=\"" << Folder
                   << "/lib.tlb\"\r\n";
        }
    }
    return Result.str();
}

class TCorpus
{
public:
    TCorpus()
    {
        FHost.UseStandInTools();
        FHost.SetRegistry(ComRegistry(FHost.Folder.Path()));
        FHost.Folder.Write("lib.tlb");
    }

    /// Loads a project in its first configuration. True: its response file is there and complete.
    void Check(const TExpectation& Expectation)
    {
        ++FCount;
        fs::create_directories(FFolder);
        const std::string File = FHost.Folder.Path() + '/' + FFolder + Expectation.File;
        fs::copy_file(Corpus / Expectation.File, File);
        const std::set<std::string> Names = WriteResources(File);
        const auto Action = FHost.Create<TQXManagedCompilerAction>(ActionClass(File));
        Action->ProjectFile = Text::Replace(File, "%", "%%");
        Action->LibLocations = "lib";
        Action->CFResGen = FHost.Tools + "/resgen.exe";
        Action->ConfigName = FirstConfiguration(*Action, File, Expectation);

        FHost.Log.Messages.clear();
        const auto Connection = FHost.Connect(*Action);
        const bool Loaded = Action->GetCommandLine(*CreateCommandLineBuilder());
        const std::string Last = FHost.Log.Messages.empty() ? "" : FHost.Log.Messages.back();
        EXPECT_EQ(Loaded, Last.starts_with("Command Line : ")) << Last;
        if (!Expectation.Message.empty() || Expectation.Sources == 0)
            EXPECT_EQ(Last, Expectation.Message.empty() ? "No Files to Compile!" : Expectation.Message);
        else if (Loaded)
            CheckLoaded(Expectation, Names, Lines(FHost.Folder.Read(FFolder + "qxresp.rsp")));
        else
            ADD_FAILURE() << Last;
        RemoveFiles();
    }

    void Summarise() const
    {
        std::cout << FCount << " projects, " << FLoaded << " loaded, " << FHost.Log.ProcessStarts.size()
                  << " tools run\n";
    }

private:
    /// Leaves the folders, which most projects share: to make and remove them takes longer than all the rest.
    static void RemoveFiles()
    {
        for (const fs::directory_entry& Entry : fs::recursive_directory_iterator("1"))
            if (!Entry.is_directory())
                fs::remove(Entry.path());
    }

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

    /// Writes the files that are to be embedded, and a class for those that belong to a source file; gives the ends
    /// of the names that those must get.
    std::set<std::string> WriteResources(const std::string& File)
    {
        std::set<std::string> Names;
        TXmlDocument Document;
        if (!Parse(File, Document))
            return Names;
        for (const TXmlElement& Element :
             Document.DocumentElement().SelectNodes("//File[@BuildAction='EmbeddedResource']"))
            Write(Element, Element.HasAttribute("Link") ? "Link" : "RelPath", "DependentUpon", Names);
        for (const TXmlElement& Element : Document.DocumentElement().SelectNodes("//File[@ContainerId='ResXCompiler']"))
            Write(Element, "FileName", "Parent", Names);
        return Names;
    }

    void Write(const TXmlElement& Element, const char* PathName, const char* OwnerName, std::set<std::string>& Names)
    {
        const std::string Path = Paths::Normalise(Element.Attribute(PathName));
        WriteOnce(Path, "");
        if (!Element.HasAttribute(OwnerName))
            return;
        const bool IsBorland = std::string_view(OwnerName) == "Parent";
        const std::string Owner = (IsBorland ? "" : Paths::Folder(Path)) + Element.Attribute(OwnerName);
        const std::string ClassName = 'C' + Paths::BareName(Owner);
        WriteOnce(Paths::Normalise(Owner), "namespace Corpus\n public class " + ClassName);
        Names.insert((Paths::Extension(Owner) == ".jsl" ? "." : "Corpus.") + ClassName + ".resources\"");
    }

    void WriteOnce(const std::string& Name, const std::string& Content)
    {
        if (!FHost.Folder.Exists(FFolder + Name))
            FHost.Folder.Write(FFolder + Name, Content);
    }

    void CheckLoaded(const TExpectation& Expectation, const std::set<std::string>& Names,
                     const std::vector<std::string>& Response)
    {
        ++FLoaded;
        const auto IsSource = [](const std::string& Line) { return Line.starts_with('"') && Line != "\"/lib:lib\""; };
        EXPECT_EQ(std::count_if(Response.begin(), Response.end(), IsSource), Expectation.Sources);
        const auto IsReference = [](const std::string& Line) { return Line.starts_with("Adding Reference : "); };
        // A control has two wrappers.
        const auto IsControl = [](const std::string& Line) { return Line.starts_with("Generating AxInterop for "); };
        EXPECT_EQ(std::count_if(FHost.Log.Messages.begin(), FHost.Log.Messages.end(), IsReference),
                  Expectation.References +
                      std::count_if(FHost.Log.Messages.begin(), FHost.Log.Messages.end(), IsControl));
        const auto IsResource = [](const std::string& Line) { return Line.starts_with("/resource:\""); };
        EXPECT_EQ(std::count_if(Response.begin(), Response.end(), IsResource), Expectation.Resources);
        for (const std::string& Name : Names)
            EXPECT_TRUE(std::any_of(Response.begin(), Response.end(), [&](const std::string& Line) {
                return IsResource(Line) && Line.ends_with(Name);
            })) << Name;
    }

    TPackageHost FHost;
    const std::string FFolder = "1/2/3/4/5/"; ///< deep enough for paths that lead out of the project's folder
    int FCount = 0, FLoaded = 0;
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
