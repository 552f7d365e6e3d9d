#include "apps/quexley/commands/LogFile.h"

#include "platform/Files.h"
#include "platform/Links.h"
#include "platform/Paths.h"
#include "platform/Text.h"
#include "runtime/HostErrors.h"
#include "runtime/Project.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace
{
/// Extensions of files that people write and tools read. Which of them a run reads shows only while it runs: project
/// files name them, scripts choose them, masks find them.
constexpr std::array<std::string_view, 36> InputExtensions = {
    ".asax",   ".ascx", ".ashx", ".asmx",    ".aspx",   ".bat",    ".bdsproj", ".bmp", ".c",
    ".config", ".cpp",  ".cs",   ".csdproj", ".csproj", ".dpk",    ".dpr",     ".h",   ".hpp",
    ".ico",    ".il",   ".js",   ".jsl",     ".licx",   ".pas",    ".png",     ".rc",  ".reg",
    ".resx",   ".sln",  ".snk",  ".toml",    ".vb",     ".vbproj", ".vjsproj", ".xml", ".xsd"};

bool IsInput(const std::string& File, const std::string& Name, const std::string& Folder)
{
    const std::string Path = Paths::Expand(Name, Folder);
    if (Name.find_first_of("*?") == std::string::npos)
        return !Name.empty() && Links::AreSame(File, Files::Spelling(Path));
    return Files::MatchesMask(Paths::FileName(File), Paths::FileName(Path)) &&
           Links::AreSame(Paths::Folder(File), Files::Spelling(Paths::Folder(Path)));
}

std::vector<std::string> FilesOf(const TCustomQXAction& Action)
{
    std::vector<std::string> Result;
    for (const TQXProperty& Property : Action.Properties())
    {
        const TQXPropertyValue Value = Property.Read();
        const auto* Lines = std::get_if<std::vector<std::string>>(&Value);
        if (Property.Kind == TQXTextKind::File && Lines)
            Result.insert(Result.end(), Lines->begin(), Lines->end());
        else if (Property.Kind == TQXTextKind::File)
            Result.push_back(std::get<std::string>(Value));
    }
    return Result;
}

bool IsNamedByAnAction(const std::string& File, const TProject& Project)
{
    return std::any_of(Project.Actions.begin(), Project.Actions.end(), [&](const TProjectAction& Action) {
        const std::vector<std::string> Names = FilesOf(*Action.Object);
        return std::any_of(Names.begin(), Names.end(),
                           [&](const std::string& Name) { return IsInput(File, Name, Project.Folder); });
    });
}

bool IsNamedLikeASource(const std::string& File)
{
    const std::string Extension = Texts::Lower(Paths::Extension(File));
    return std::find(InputExtensions.begin(), InputExtensions.end(), Extension) != InputExtensions.end();
}
} // namespace

void CheckLogFile(const std::string& LogFile, const std::vector<std::string>& Inputs, const TProject& Project)
{
    if (!Files::FileExists(Links::Resolve(LogFile)))
        return; // there is nothing to lose
    const std::string File = Paths::Expand(LogFile, Files::CurrentFolder());
    const bool IsRead = IsNamedLikeASource(File) || IsNamedByAnAction(File, Project) ||
                        std::any_of(Inputs.begin(), Inputs.end(), [&](const std::string& Input) {
                            return !Input.empty() && Links::AreSame(File, Input);
                        });
    if (IsRead)
        throw EUsageError(fmt::format("--log would replace {}, which is no log", LogFile));
}
