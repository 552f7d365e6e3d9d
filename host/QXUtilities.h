#pragma once

#include "host/QXStringList.h"

#include <memory>
#include <string>
#include <string_view>

/// The text in double quotes. One that stands in quotes already stays as it is; Always false leaves a
/// text without blanks alone.
[[nodiscard]] std::string DoubleQuoteString(std::string_view Text, bool Always);
/// The text without the pair of double or single quotes that encloses it.
[[nodiscard]] std::string StripQuotes(std::string_view Text);
/// An absolute path stays; a relative one is joined to Folder and normalised. The result has native
/// delimiters and, where it is found ignoring case, the spelling on disk.
[[nodiscard]] std::string ExpandRelativePath(std::string_view Path, std::string_view Folder);
/// Whether a path names a drive where the system has none: no file or folder can be made there.
[[nodiscard]] bool IsForeignPath(std::string_view Path);
/// Matches a name against a mask with `*`, `?` and character sets `[a-z]`, `[!a-z]`, ignoring case. "*.*" matches every
/// name.
[[nodiscard]] bool MatchesFileMask(std::string_view Name, std::string_view Mask);
/// The file of a program: a bare name is looked for along the search path, any other path where it leads. Empty if
/// there is none.
[[nodiscard]] std::string FindProgramFile(std::string_view Program);
/// The lines of a text file in UTF-8 (with or without mark), UTF-16 or the 8-bit code page. Throws
/// std::runtime_error with the reason.
[[nodiscard]] TStringList LoadUnicodeFile(const std::string& FileName);
/// The Windows folder; elsewhere the folder that the options name as it, or empty.
[[nodiscard]] std::string GetWinDirectory();
/// The system folder below it, or empty.
[[nodiscard]] std::string GetSysDirectory();
/// The folder of what is installed with the programs for them to read: `help` with the pages that actions name as their
/// quick help, `images` with NAME.png and NAME@2x.png of each registered image. Names in it are found ignoring case.
[[nodiscard]] std::string QXShareFolder();

/// Reads one line piece by piece from a position. The line is not copied: it must last as long as it is read, and what
/// is read is part of it.
class IStringTokeniser
{
public:
    virtual ~IStringTokeniser() = default;
    /// Sets the line; the position goes to its first character.
    virtual void SetText(std::string_view Line) = 0;
    /// Moves forward over white space.
    virtual void SkipWhiteSpace() = 0;
    /// Skips white space and gives the text up to the delimiter, on which the position stays; the rest
    /// of the line if there is none.
    [[nodiscard]] virtual std::string_view ReadUntilChar(char Delimiter) = 0;
    /// The same for any of several delimiters.
    [[nodiscard]] virtual std::string_view ReadUntilAny(std::string_view Delimiters) = 0;
    /// Skips white space and gives the rest of the line.
    [[nodiscard]] virtual std::string_view ReadRest() = 0;
    /// Moves one character on and gives the character there; NUL at the end of the line.
    virtual char Next() = 0;
    /// The character at the position; NUL at the end of the line.
    [[nodiscard]] virtual char Current() const = 0;
};

[[nodiscard]] std::unique_ptr<IStringTokeniser> CreateStringTokeniser(std::string_view Text);

/// Ask for a file or a folder through the program's dialogs; true if one was chosen.
[[nodiscard]] bool QXBrowseForFile(std::string& FileName, std::string_view Filter, std::string_view Title);
[[nodiscard]] bool QXBrowseForDirectory(std::string& Folder, std::string_view Title);
