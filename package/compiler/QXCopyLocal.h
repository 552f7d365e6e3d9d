#pragma once

#include "package/compiler/QXProjectLoader.h"

#include <set>
#include <string>
#include <vector>

/// Copies a file as the IDE puts it beside an output: one that is the same is left alone, one that may not be written
/// to is replaced. False: the log tells that it could not be copied.
[[nodiscard]] bool CopyBesideOutput(const TCustomQXAction& Action, const std::string& From, const std::string& To);

/// Puts the assemblies that a project refers to beside its output, with what belongs to them and the assemblies that
/// they need in turn. What the framework has stays where it is.
class TQXCopyLocal
{
public:
    TQXCopyLocal(const TQXManagedCompilerAction& Action, const TProjectLoad& Load) : FAction(Action), FLoad(Load) {}

    /// Notes an assembly of the project by its path. Of those with the same name the first counts.
    void Add(const std::string& Path) { Note(Path, true); }
    /// False: the log tells what could not be copied.
    [[nodiscard]] bool Copy();

private:
    struct TAssembly
    {
        std::string Path;
        bool IsListed; ///< the project names it, and not only an assembly that needs it
    };

    void Note(const std::string& Path, bool IsListed);
    [[nodiscard]] bool CopyAssembly(const TAssembly& Assembly) const;
    /// A file beside an assembly, if there is one.
    [[nodiscard]] bool CopyFile(const std::string& Path, const std::string& Folder) const;
    [[nodiscard]] bool CopySatellites(const std::string& Path) const;
    /// Whether what lies beside the output came there later than the assembly, which the project does not name, to its
    /// place: an output of another project maybe.
    [[nodiscard]] bool IsNewerThere(const std::string& Path) const;
    /// Notes what an assembly needs and where that lies: beside it or in the library locations.
    void AddNeeded(const std::string& Path);
    [[nodiscard]] bool IsOfFramework(const std::string& Path) const;

    const TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
    std::vector<TAssembly> FAssemblies;
    std::set<std::string> FNames; ///< in the form that ignores case
};
