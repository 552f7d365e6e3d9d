#include "apps/import/ProjectFile.h"

#include "apps/import/ProjectFormats.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace
{
constexpr std::array<std::string_view, 6> Extensions = {".csproj",  ".vbproj",  ".vjsproj",
                                                        ".bdsproj", ".csdproj", ".vbdproj"};
/// What is larger is no project: reading it would take all memory.
constexpr std::size_t MaximumSize = 64U << 20U;
} // namespace

const TProjectConfiguration* TFoundProject::Find(std::string_view Configuration) const
{
    const auto Found =
        std::find_if(Configurations.begin(), Configurations.end(), [&](const TProjectConfiguration& Candidate) {
            return Texts::Same(Candidate.Name, Configuration);
        });
    return Found == Configurations.end() ? nullptr : &*Found;
}

bool IsProjectName(std::string_view Name)
{
    const std::string_view Extension = Name.substr(std::min(Name.rfind('.'), Name.size()));
    return std::any_of(Extensions.begin(), Extensions.end(),
                       [=](std::string_view Known) { return Texts::Same(Known, Extension); });
}

std::string PlainGuid(std::string_view Guid)
{
    Guid = Texts::Trim(Guid);
    if (Guid.starts_with('{') && Guid.ends_with('}'))
        Guid = Guid.substr(1, Guid.size() - 2);
    return Texts::Upper(Guid);
}

std::string LibraryFileName(const std::string& Name)
{
    return Texts::Upper(Name).find(".DLL") == std::string::npos ? Name + ".dll" : Name;
}

TFoundProject ReadProject(const std::string& File)
{
    const std::string Bytes = Files::Read(File);
    if (Bytes.size() > MaximumSize)
        throw EProjectError("it is larger than any project");
    TXmlDocument Document;
    if (!Document.LoadFromProject(Bytes))
        throw EProjectError(
            fmt::format("it cannot be read: line {}: {}", Document.ParseError().Line, Document.ParseError().Reason));

    TFoundProject Project{.File = File, .Folder = Paths::Folder(File), .Name = Paths::BareName(File)};
    const TXmlElement Root = Document.DocumentElement();
    if (Root.Name() == "BorlandProject")
        ReadBuilderProject(Root, Project);
    else if (Root.Name() == "Project")
        ReadMSBuildProject(Root, Project);
    else
        ReadVisualStudioProject(Root, Project);
    return Project;
}
