#include "tests/DataFile.h"

#include "gtest/gtest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace
{
/// Calls Take for every line that is not empty and no comment, with its number.
void ReadLines(const std::string& File, const std::function<void(const std::string& Line, int Number)>& Take)
{
    std::ifstream Stream(File);
    EXPECT_TRUE(Stream) << File << " cannot be read";
    int Number = 0;
    for (std::string Line; std::getline(Stream, Line);)
        if (++Number; !Line.empty() && !Line.starts_with('#'))
            Take(Line, Number);
}

std::string Trim(const std::string& Text)
{
    const auto First = Text.find_first_not_of(' ');
    return First == Text.npos ? "" : Text.substr(First, Text.find_last_not_of(' ') - First + 1);
}

TColumns SplitRow(const std::string& Line)
{
    const std::string Padded = ' ' + Line + ' ';
    TColumns Result;
    for (std::size_t Start = 0; Start < Padded.size();)
    {
        const std::size_t End = std::min(Padded.find(" | ", Start), Padded.size());
        Result.push_back(Unescape(Trim(Padded.substr(Start, End - Start)), '^'));
        Start = End + 2; // the blank behind a bar may be the one before the next
    }
    return Result;
}
} // namespace

void TDataCase::Fail(const TDataLine& At, const std::string& Reason) const
{
    ADD_FAILURE_AT(File.c_str(), At.Line) << Reason;
}

std::vector<TDataCase> ReadCases(const std::string& File)
{
    std::vector<TDataCase> Cases;
    TDataCase Common{File, "", 0, {}};
    ReadLines(File, [&](const std::string& Line, int Number) {
        TDataCase& Case = Cases.empty() ? Common : Cases.back();
        const std::size_t End = std::min(Line.find(' '), Line.size());
        const std::string Rest = Line.substr(std::min(End + 1, Line.size()));
        if (Line.starts_with("case "))
        {
            Cases.push_back(Common);
            Cases.back().Name = Rest;
            Cases.back().Line = Number;
        }
        else if (!Line.starts_with('|'))
            Case.Lines.push_back({Line.substr(0, End), Rest, "", Number});
        else if (Case.Lines.empty())
            ADD_FAILURE_AT(File.c_str(), Number) << "text that belongs to no line";
        else
            Case.Lines.back().Text += Rest + '\n';
    });
    EXPECT_FALSE(Cases.empty()) << File << " holds no case";
    return Cases;
}

std::vector<std::string> FindDataFiles(const std::string& Folder)
{
    std::vector<std::string> Result;
    for (const fs::directory_entry& Entry : fs::directory_iterator(fs::path(QUEXLEY_SOURCE_DIR) / Folder))
        if (Entry.path().extension() == ".txt")
            Result.push_back(Entry.path().string());
    std::sort(Result.begin(), Result.end());
    return Result;
}

std::string DataFileName(const std::string& File)
{
    return fs::path(File).stem().string();
}

std::pair<std::string, std::string> SplitSetting(const std::string& Text)
{
    const auto Place = Text.find(" =");
    if (Place == Text.npos || (Place + 2 < Text.size() && Text[Place + 2] != ' '))
        return {Text, ""};
    return {Text.substr(0, Place), Text.substr(std::min(Place + 3, Text.size()))};
}

std::string Unescape(std::string_view Text, char Escape)
{
    static constexpr std::string_view Letters = "nrt0s";
    static constexpr std::string_view Meanings("\n\r\t\0 ", 5);
    std::string Result;
    for (std::size_t Index = 0; Index < Text.size(); ++Index)
        if (Text[Index] != Escape)
            Result += Text[Index];
        else if (Text.at(++Index) == 'x')
        {
            Result += static_cast<char>(std::stoi(std::string(Text.substr(Index + 1, 2)), nullptr, 16));
            Index += 2;
        }
        else
        {
            const std::size_t Letter = Letters.find(Text[Index]);
            Result += Letter == Letters.npos ? Text[Index] : Meanings[Letter];
        }
    return Result;
}

void CheckTable(const std::string& File, const std::string& Table,
                const std::function<TColumns(const TColumns& Columns)>& Function, std::size_t Inputs)
{
    const std::string Path = QUEXLEY_SOURCE_DIR "/tests/tables/" + File + ".txt";
    bool Inside = false;
    int Rows = 0;
    ReadLines(Path, [&](const std::string& Line, int Number) {
        if (Line.starts_with("table "))
            Inside = Line.substr(6) == Table;
        else if (Inside)
        {
            ++Rows;
            const testing::ScopedTrace Trace(Path.c_str(), Number, Line);
            const TColumns Columns = SplitRow(Line);
            if (Columns.size() < Inputs)
                ADD_FAILURE_AT(Path.c_str(), Number) << "too few columns";
            else
                EXPECT_EQ(Function(Columns),
                          TColumns(Columns.begin() + static_cast<std::ptrdiff_t>(Inputs), Columns.end()));
        }
    });
    EXPECT_GT(Rows, 0) << Path << " has no table " << Table;
}
