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
} // namespace

TResumeNote::TResumeNote(const std::string& ProjectFile)
    : FProjectFile(BehindLinks(ProjectFile)),
      FFileName(Paths::Join(Files::StateFolder(), fmt::format("quexley/resume-{:016x}", Hash(FProjectFile))))
{}

// Three lines: the project, the action's number, its name.
std::optional<TResumeNote::TPlace> TResumeNote::Read() const
{
    if (!Files::FileExists(FFileName))
        return std::nullopt;
    TStringList Lines;
    Lines.SetText(Files::Read(FFileName));
    if (Lines.Count() < 3 || Lines[0] != FProjectFile)
        return std::nullopt;
    return TPlace{Texts::ParseWhole<int>(Lines[1]).value_or(0), Lines[2]};
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
    if (FFile)
        FFile->Write(fmt::format("{}\n{}\n{}\n", FProjectFile, Place.Index, Place.Name));
}

void TResumeNote::Remove()
{
    if (!FFile && !FIsTaken && Files::FileExists(FFileName))
        FFile = THeldFile::Hold(FFileName);
    if (FFile)
        FFile->Remove();
    FFile.reset();
}
