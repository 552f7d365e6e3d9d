#include "runtime/ResumeNote.h"

#include "host/QXStringList.h"
#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <cstdint>

namespace
{
/// FNV-1a: tells projects apart in file names. The note itself names its project.
std::uint64_t Hash(std::string_view Text)
{
    std::uint64_t Result = 0xcbf29ce484222325U;
    for (const char Character : Text)
        Result = (Result ^ static_cast<unsigned char>(Character)) * 0x100000001b3U;
    return Result;
}

std::string BehindLinks(const std::string& FileName)
{
    const std::string Result = Links::Resolve(FileName);
    return Result.empty() ? FileName : Result;
}
/// Texts of any kind on a line each.
std::string OnOneLine(std::string_view Text)
{
    return Texts::Replace(Texts::Replace(Texts::Replace(Text, "\\", "\\\\"), "\n", "\\n"), "\r", "\\r");
}

std::string FromOneLine(std::string_view Line)
{
    std::string Text;
    for (std::size_t Index = 0; Index < Line.size(); ++Index)
        if (Line[Index] != '\\' || Index + 1 == Line.size())
            Text += Line[Index];
        else if (const char Code = Line[++Index]; Code == 'n' || Code == 'r')
            Text += Code == 'n' ? '\n' : '\r';
        else
            Text += Code;
    return Text;
}
} // namespace

TResumeNote::TResumeNote(const std::string& ProjectFile)
    : FProjectFile(BehindLinks(ProjectFile)),
      FFileName(Paths::Join(Files::StateFolder(), fmt::format("quexley/resume-{:016x}", Hash(FProjectFile))))
{}

// The lines: the project, the action's number, its name, and for each variable that was set its name, with the value
// behind an equals sign unless that is secret.
std::optional<TResumeNote::TPlace> TResumeNote::Read() const
{
    if (!Files::FileExists(FFileName))
        return std::nullopt;
    TStringList Lines;
    Lines.SetText(Files::Read(FFileName));
    if (Lines.Count() < 3 || Lines[0] != FProjectFile)
        return std::nullopt;
    TPlace Place{Texts::ParseWhole<int>(Lines[1]).value_or(0), FromOneLine(Lines[2])};
    for (std::size_t Line = 3; Line < Lines.Count(); ++Line)
    {
        const std::string Setting = FromOneLine(Lines[Line]);
        const std::size_t Equals = Setting.find('=');
        if (Equals == std::string::npos)
            Place.Withheld.push_back(Setting);
        else
            Place.Settings.emplace_back(Setting.substr(0, Equals), Setting.substr(Equals + 1));
    }
    return Place;
}

// The file is made once and then rewritten in one piece: making a file for each action can take longer than a tool.
void TResumeNote::Write(const TPlace& Place)
{
    if (!FFile && !FIsTaken)
    {
        if (!Files::ForcePrivateFolders(Paths::Folder(FFileName)))
            throw EFileError(Paths::Folder(FFileName), "cannot be made");
        FFile = THeldFile::Hold(FFileName);
        FIsTaken = FFile == nullptr;
    }
    if (!FFile)
        return;
    std::string Text = fmt::format("{}\n{}\n{}\n", FProjectFile, Place.Index, OnOneLine(Place.Name));
    for (const auto& [Name, Value] : Place.Settings)
        Text += fmt::format("{}={}\n", Name, OnOneLine(Value));
    for (const std::string& Name : Place.Withheld)
        Text += fmt::format("{}\n", Name);
    FFile->Write(Text);
}

void TResumeNote::Remove()
{
    if (!FFile && !FIsTaken && Files::FileExists(FFileName))
        FFile = THeldFile::Hold(FFileName);
    if (FFile)
        FFile->Remove();
    FFile.reset();
}
