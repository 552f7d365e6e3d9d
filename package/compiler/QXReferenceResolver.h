#pragma once

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

private:
    [[nodiscard]] bool ResolveReference(TXmlElement& Reference);
    /// Finds the output of another project and turns the element into a reference to that assembly.
    [[nodiscard]] bool ResolveProjectReference(TXmlElement& Reference);
    /// Tells where the output of a project, Name, was looked for; Answer: what a script made of the name.
    void TellWhereLookedFor(const std::string& Name, const std::string& Answer) const;
    /// Whether a bare name lies where the compiler looks by itself.
    [[nodiscard]] bool IsFoundByCompiler(const std::string& Name) const;
    [[nodiscard]] bool ResolveComReference(const TXmlElement& Reference);
    [[nodiscard]] bool AddWrapper(const TXmlElement& Reference);
    [[nodiscard]] bool AddControlWrapper(const TXmlElement& Reference);
    /// The wrapper that a library's maker registered in the assembly cache, or empty. Throws std::runtime_error.
    [[nodiscard]] static std::string GetPrimaryInterop(const TXmlElement& Reference);
    /// Whether a copy of the file is expected in the output folder and lies there.
    [[nodiscard]] bool IsPrivate(const TXmlElement& Reference, const std::string& Name) const;
    [[nodiscard]] std::string AssemblyPath(const TXmlElement& Reference) const;
    [[nodiscard]] std::string PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const;
    void AddReference(const std::string& Path);

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
    TQXWrapperGenerator FWrappers{FAction, FLoad};
};
