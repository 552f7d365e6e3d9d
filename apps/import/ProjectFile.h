// What a build needs to know of a project file, of whichever development environment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

enum class TProjectKind { CSharp, VisualBasic, JSharp, CSharpBuilder, MSBuild };

/// A configuration and the folder of its output, as the project names it.
struct TProjectConfiguration
{
    std::string Name;
    std::string OutputPath;
};

enum class TReferenceKind { Project, Assembly, Com };

struct TProjectReference
{
    TReferenceKind Kind = TReferenceKind::Assembly;
    std::string Name;     ///< of the project or the type library; of an assembly without extension
    std::string Guid{};   ///< of a project
    std::string Path{};   ///< hint path of an assembly, file of a project; empty where there is none
    bool IsByKey = false; ///< an assembly that a registered folder holds
};

/// A project as its file describes it. Paths in it are as they stand there.
struct TFoundProject
{
    std::string File;   ///< absolute
    std::string Folder; ///< with a delimiter at the end
    std::string Name;   ///< the file's, without extension
    TProjectKind Kind = TProjectKind::CSharp;
    bool IsCompact = false; ///< for a device, with the compact framework
    bool IsProgram = false;
    bool HasBuildEvents = false;
    bool LacksImports = false;                           ///< of VB.NET, which its action does not go without
    std::string Guid{};                                  ///< in the form of PlainGuid
    std::string OutputName{};                            ///< of the file that it makes
    std::vector<TProjectConfiguration> Configurations{}; ///< empty: it takes any
    std::vector<TProjectReference> References{};
    std::vector<std::string> Sources{};
    std::vector<std::string> Resources{};

    /// The configuration of this name, ignoring case, or null.
    [[nodiscard]] const TProjectConfiguration* Find(std::string_view Configuration) const;
};

/// A project that cannot be taken, with the reason.
class EProjectError : public std::exception
{
public:
    explicit EProjectError(std::string Reason) : FReason(std::move(Reason)) {}
    [[nodiscard]] const char* what() const noexcept override { return FReason.c_str(); }

private:
    std::string FReason;
};

/// Whether files of this name are read by ReadProject.
[[nodiscard]] bool IsProjectName(std::string_view Name);
/// Reads a project of Visual Studio or C# Builder. Throws EProjectError, EFileError.
[[nodiscard]] TFoundProject ReadProject(const std::string& File);
/// Without braces, in capitals.
[[nodiscard]] std::string PlainGuid(std::string_view Guid);
/// A file of an assembly or library, as project compilers name it: with ".dll" unless that stands anywhere in it.
[[nodiscard]] std::string LibraryFileName(const std::string& Name);
