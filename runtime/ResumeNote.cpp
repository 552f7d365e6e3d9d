#include "runtime/ResumeNote.h"

#include "host/QXStringList.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
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
} // namespace

TResumeNote::TResumeNote(std::string ProjectFile)
    : FProjectFile(std::move(ProjectFile)),
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
    std::string Text = fmt::format("{}\n{}\n{}\n", FProjectFile, Place.Index, Place.Name);
    if (!FFile)
    {
        if (!Files::ForceFolders(Paths::Folder(FFileName)))
            throw EFileError(Paths::Folder(FFileName), "cannot be made");
        Files::ReplaceContent(FFileName, Text);
        FFile.reset(std::fopen(FFileName.c_str(), "r+b"));
        if (FFile)
            std::setvbuf(FFile.get(), nullptr, _IONBF, 0);
        FLength = Text.size();
        return;
    }
    FLength = std::max(FLength, Text.size());
    Text.resize(FLength, '\n'); // over what a longer name left
    std::rewind(FFile.get());
    if (std::fwrite(Text.data(), 1, Text.size(), FFile.get()) != Text.size())
        throw EFileError(FFileName, std::generic_category().message(errno));
}

void TResumeNote::Remove()
{
    FFile.reset();
    if (!Files::Delete(FFileName))
        throw EFileError(FFileName, "cannot be deleted");
}
