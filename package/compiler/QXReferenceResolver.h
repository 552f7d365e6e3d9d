#pragma once

#include "package/compiler/QXProjectLoader.h"

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
    [[nodiscard]] bool ResolveComReference(const TXmlElement& Reference) const;
    [[nodiscard]] std::string AssemblyPath(const TXmlElement& Reference) const;
    [[nodiscard]] std::string PathByKeyOrHint(const TXmlElement& Reference, const std::string& Name) const;
    void AddReference(const std::string& Path);

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
};
