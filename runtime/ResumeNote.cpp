#include "runtime/ResumeNote.h"

#include "host/QXStringList.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <filesystem>
#include <system_error>

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
    std::error_code Error;
    const std::filesystem::path Result = std::filesystem::canonical(FileName, Error);
    return Error ? FileName : Result.string();
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
    TPlace Place{0, Lines[2]};
    std::from_chars(Lines[1].data(), Lines[1].data() + Lines[1].size(), Place.Index);
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
