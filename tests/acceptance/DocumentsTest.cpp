// What the program takes stands in docs/. The examples of the pages run in data/documents.txt.
#include "tests/acceptance/ProgramTest.h"

#include <nlohmann/json.hpp>
#include <regex>
#include <set>

namespace
{
class TDocumentsTest : public TProgramTest
{
protected:
    std::string Told(const std::vector<std::string>& Arguments)
    {
        const TProgramResult Result = Run(Arguments);
        EXPECT_EQ(Result.ExitCode, 0) << Result.Err;
        return Result.Out;
    }

    /// Checks that a page holds all that a pattern's group finds in a text, in the form that begins with Open.
    static void ExpectNamed(const std::string& Text, const char* Pattern, const std::string& Page,
                            const std::string& Open = "`")
    {
        const std::string Document = ReadDocument(Page);
        const std::regex Known(Pattern);
        std::size_t Count = 0;
        for (std::sregex_iterator Found(Text.begin(), Text.end(), Known); Found != std::sregex_iterator(); ++Found)
        {
            ++Count;
            const std::regex Named(Open + (*Found)[1].str() + "(?![\\w-])");
            EXPECT_TRUE(std::regex_search(Document, Named)) << "docs/" << Page << " lacks " << (*Found)[1];
        }
        EXPECT_GT(Count, 0U) << Text;
    }

    /// The names of all properties in a schema, one a line.
    static std::string Keys(const nlohmann::json& Schema)
    {
        std::string Result;
        for (const auto& [Name, Value] : Schema.items())
        {
            if (Name == "properties")
                for (const auto& Property : Value.items())
                    Result += Property.key() + '\n';
            if (Value.is_structured())
                Result += Keys(Value);
        }
        return Result;
    }
};
} // namespace

TEST_F(TDocumentsTest, NameEveryCommandAndOption)
{
    const std::string Help = Told({"--help"});
    const std::string Commands = Help.substr(Help.find("Subcommands:"));
    ExpectNamed(Commands, R"(\n  ([a-z]\S*))", "command-line.md", "`quexley ");
    const std::regex Command(R"(\n  ([a-z]\S*))");
    for (std::sregex_iterator Found(Commands.begin(), Commands.end(), Command); Found != std::sregex_iterator();
         ++Found)
        ExpectNamed(Told({(*Found)[1], "--help"}), R"([ ,](--[a-z][a-z-]*))", "command-line.md", "[` \\[]");
}

TEST_F(TDocumentsTest, NameEveryKeyScriptAndSetting)
{
    const std::string Names = Keys(nlohmann::json::parse(Told({"schema"})));
    ExpectNamed(Names, R"((?:^|\n)([a-z_]+)(?=\n))", "project-file.md");
    ExpectNamed(Names, R"((?:^|\n)(On[A-Z]\w*)(?=\n))", "scripts.md", "\n## ");
    ExpectNamed(Told({"options"}), R"(host\.(\w+))", "options-file.md");
}
