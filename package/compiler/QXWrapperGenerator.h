#pragma once

#include "package/compiler/QXProjectLoader.h"

#include <string>

/// Makes wrapper assemblies of COM type libraries, which the IDE makes when a reference is added. They go to the
/// output folder. Version numbers and locales that are no numbers throw std::runtime_error.
class TQXWrapperGenerator
{
public:
    TQXWrapperGenerator(TQXManagedCompilerAction& Action, const TProjectLoad& Load) : FAction(Action), FLoad(Load) {}

    /// Wraps the library and adds the wrapper to the references. False: the log tells why.
    [[nodiscard]] bool GenerateInterop(const TXmlElement& Reference) const;
    /// Wraps the controls of the library and the library itself. False: the log tells why.
    [[nodiscard]] bool GenerateAxInterop(const TXmlElement& Reference) const;
    /// The registered path of the library, its version taken as decimal numbers; empty if there is none.
    [[nodiscard]] static std::string GetTypeLib(const TXmlElement& Reference);
    /// The name of a control reference without the mark of controls.
    [[nodiscard]] static std::string LibraryName(const std::string& Name);

private:
    void TellGenerated(const std::string& Name) const;
    /// Logs what is looked for and what is found. Empty: the log tells.
    [[nodiscard]] std::string LocateLibrary(const std::string& Name, const TXmlElement& Reference,
                                            int VersionBase) const;
    [[nodiscard]] bool RunTool(const std::string& Tool, const std::string& Folder, std::string Arguments) const;

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
};
