#pragma once

#include "package/compiler/QXCopyLocal.h"
#include "package/compiler/QXProjectLoader.h"
#include "package/compiler/QXWrapperGenerator.h"

#include <string>
#include <vector>

/// Decides for each reference of a Visual Studio project which file the compiler gets.
class TQXReferenceResolver
{
public:
    TQXReferenceResolver(TQXManagedCompilerAction& Action, const TProjectLoad& Load) : FAction(Action), FLoad(Load) {}
    /// Fills the action's references, in file order. False: the log tells why.
    [[nodiscard]] bool Resolve(std::vector<TXmlElement> References);
    /// Adds what an entry of a project refers to. Where the project follows the IDE, that is copied by CopyFound, and
    /// the log is told where it was looked for in vain.
    void Take(const TXmlElement& Entry, const std::string& Path);
    /// Copies what was found beside the output. False: the log tells why.
    [[nodiscard]] bool CopyFound() { return FCopies.Copy(); }

private:
    [[nodiscard]] bool ResolveReference(TXmlElement& Reference);
    /// Finds the output of another project and turns the element into a reference to that assembly.
    [[nodiscard]] bool ResolveProjectReference(TXmlElement& Reference);
    /// Tells where the output of a project, Name, was looked for; Answer: what a script made of the name.
    void TellWhereLookedFor(const std::string& Name, const std::string& Answer) const;
    /// Whether a bare name lies where the compiler looks by itself.
    [[nodiscard]] bool IsFoundByCompiler(const std::string& Name) const;
    [[nodiscard]] bool ResolveComReference(const TXmlElement& Reference);
    void AddPrimaryInterop(const TXmlElement& Reference);
    [[nodiscard]] bool AddWrapper(const TXmlElement& Reference);
    [[nodiscard]] bool AddControlWrapper(const TXmlElement& Reference);
    /// The wrapper that a library's maker registered in the assembly cache, or empty. Throws std::runtime_error.
    [[nodiscard]] static std::string GetPrimaryInterop(const TXmlElement& Reference);
    /// Whether a copy of the file is expected in the output folder and lies there.
    [[nodiscard]] bool IsPrivate(const TXmlElement& Reference, const std::string& Name) const;
    [[nodiscard]] std::string AssemblyPath(const TXmlElement& Reference) const;
    /// Where the IDE takes a copy in the output folder from, if that is there; else empty.
    [[nodiscard]] std::string OriginalPath(const TXmlElement& Reference, const std::string& Name) const;
    [[nodiscard]] std::string OutputOfProject(const std::string& Name);
    [[nodiscard]] static std::string PathByKey(const TXmlElement& Reference, const std::string& Name);
    /// The file that the compiler will find, or empty.
    [[nodiscard]] std::string Locate(const std::string& Path) const;
    void TellPlaces(const TXmlElement& Reference, const std::string& Path) const;
    [[nodiscard]] std::string PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const;
    void AddReference(const std::string& Path);

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
    TQXWrapperGenerator FWrappers{FAction, FLoad};
    TQXCopyLocal FCopies{FAction, FLoad};
    TStringList FTried; ///< where the output of the project that a reference names is not
};
