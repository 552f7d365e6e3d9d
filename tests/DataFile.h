// Cases and tables that tests read from files. Empty lines and lines that begin with "#" count for nothing.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A line of a case: a word, the rest, and the lines "| text" below it, each with its line end.
struct TDataLine
{
    std::string Word, Rest, Text;
    int Line = 0;
};

/// What begins with "case NAME". Lines that stand before the first case are the first lines of every one.
struct TDataCase
{
    std::string File, Name;
    int Line = 0;
    std::vector<TDataLine> Lines;

    /// Makes the running test fail at a line of the file.
    void Fail(const TDataLine& At, const std::string& Reason) const;
};

/// The cases of a file; the test fails if there are none.
[[nodiscard]] std::vector<TDataCase> ReadCases(const std::string& File);
/// The .txt files of a folder of the sources, sorted.
[[nodiscard]] std::vector<std::string> FindDataFiles(const std::string& Folder);
/// A file's bare name, for the name of its test.
[[nodiscard]] std::string DataFileName(const std::string& File);

/// The two sides of " = "; the second is empty without one.
[[nodiscard]] std::pair<std::string, std::string> SplitSetting(const std::string& Text);
/// The bytes that a text stands for: Escape before n, r, t, 0, s (a blank), itself or "xFF".
[[nodiscard]] std::string Unescape(std::string_view Text, char Escape = '\\');

using TColumns = std::vector<std::string>;
/// Checks every row of a table of tests/tables/NAME.txt, which begins with "table NAME": Function gives for the first
/// column, or as many as are Inputs, what the others hold. Columns are parted by " | ", and "^" escapes.
void CheckTable(const std::string& File, const std::string& Table,
                const std::function<TColumns(const TColumns& Columns)>& Function, std::size_t Inputs = 1);
/// "yes" or "no", as tables have it.
[[nodiscard]] inline std::string YesOrNo(bool Value)
{
    return Value ? "yes" : "no";
}
