// Drives the pages of the package by the cases of data/, whose README.md tells what can stand there.
#include "platform/Text.h"
#include "runtime/forms/PageJson.h"
#include "tests/DataFile.h"
#include "tests/pages/PagesHost.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

namespace
{
bool Holds(const TPageJson& Actual, const TPageJson& Expected);

/// Whether Actual has each of the objects, found by their name.
bool HoldsNamed(const TPageJson& Actual, const TPageJson& Expected, const char* Name)
{
    return std::all_of(Expected.begin(), Expected.end(), [&](const TPageJson& Wanted) {
        return std::any_of(Actual.begin(), Actual.end(), [&](const TPageJson& Found) {
            return Found.is_object() && Found.value(Name, TPageJson()) == Wanted[Name] && Holds(Found, Wanted);
        });
    });
}

bool Holds(const TPageJson& Actual, const TPageJson& Expected)
{
    if (Expected.is_object())
        return Actual.is_object() &&
               std::all_of(Expected.items().begin(), Expected.items().end(), [&](const auto& Item) {
                   return Actual.contains(Item.key()) && Holds(Actual[Item.key()], Item.value());
               });
    if (!Expected.is_array() || !Actual.is_array() || Expected.empty() || !Expected[0].is_object())
        return Actual == Expected;
    for (const char* Name : {"name", "class"})
        if (Expected[0].contains(Name))
            return HoldsNamed(Actual, Expected, Name);
    return Actual.size() == Expected.size() && std::equal(Actual.begin(), Actual.end(), Expected.begin(), Holds);
}

void CheckAnswer(const TDataCase& Case, const TDataLine& Line, const std::string& Answer, const std::string& Expected)
{
    const TPageJson Actual = TPageJson::parse(Answer);
    const TPageJson Wanted = Expected.empty() ? TPageJson() : TPageJson::parse(Expected);
    const bool Fits = Wanted.is_null() ? !Actual.contains("error") : Holds(Actual, Wanted);
    if (!Fits)
        Case.Fail(Line, "the answer is " + Answer);
}

void RunCase(const TDataCase& Case)
{
    TPagesHost Host;
    ::setenv("ProjectDir", (Host.Folder / "src").c_str(), 1);
    std::string ClassName;
    std::string Requests;
    std::vector<std::pair<TDataLine, std::string>> Expected;
    const auto Meant = [&](const std::string& Text) { return Texts::Replace(Text, "%DIR%", Host.Folder.Path()); };
    for (const TDataLine& Line : Case.Lines)
        if (Line.Word == "pages")
            ClassName = Line.Rest;
        else if (Line.Word == "file")
            Host.Folder.Write(Line.Rest, Line.Text);
        else if (Line.Word == "versions")
            Host.UseVersions(Line.Rest);
        else if (Line.Word == "options")
            Host.SetOptions(Line.Text);
        else if (Line.Word == ">")
        {
            Requests += Meant(Line.Rest) + "\n";
            Expected.emplace_back(Line, "");
        }
        else if (Line.Word == "<" && !Expected.empty())
            Expected.back().second = Meant(Line.Rest);
        else
            Case.Fail(Line, "unknown line");
    const std::vector<std::string> Answers = Host.Drive(ClassName, Requests);
    ASSERT_EQ(Answers.size(), Expected.size()) << Case.File << ": " << Case.Name;
    for (std::size_t Index = 0; Index < Answers.size(); ++Index)
        CheckAnswer(Case, Expected[Index].first, Answers[Index], Expected[Index].second);
}

class PagesData : public testing::TestWithParam<std::string>
{
};
} // namespace

TEST_P(PagesData, AnswersAsTheFileTells)
{
    for (const TDataCase& Case : ReadCases(GetParam()))
        RunCase(Case);
}
INSTANTIATE_TEST_SUITE_P(Files, PagesData, testing::ValuesIn(FindDataFiles("tests/pages/data")),
                         [](const auto& Info) { return DataFileName(Info.param); });
