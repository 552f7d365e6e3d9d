#pragma once

#include "host/QXProcess.h"
#include "package/compiler/QXProjectLoader.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

/// Compiles the resources and licenses of a project under the names that its code expects, and puts them into the
/// action's resource lists. Each operation gives false after telling the log why.
class TQXResourceProcessor
{
public:
    TQXResourceProcessor(TQXManagedCompilerAction& Action, const TProjectLoad& Load);

    [[nodiscard]] bool ProcessVSEmbeddedResource(const TXmlElement& File) const;
    [[nodiscard]] bool ProcessBorlandEmbeddedResource(const TXmlElement& File) const;

private:
    void Log(const std::string& Message) const { FAction.SendMessage(Message); }
    [[nodiscard]] bool ProcessByExtension(const std::string& Path) const;
    [[nodiscard]] bool ChooseResourceCompiler() const;
    /// A resource of its own, named after its file.
    [[nodiscard]] bool ProcessResx(const std::string& SourceFile) const;
    /// A resource named after the class in the source file that it belongs to.
    [[nodiscard]] bool ProcessFormResx(const std::string& SourceFile, const std::string& DependentFile,
                                       const std::string& Culture = {}) const;
    /// The part of a form's resource file that names its culture (".de-DE"), if the form's neutral resource is in the
    /// project as well: both under one name would not compile.
    [[nodiscard]] std::string CultureBesideNeutral(const TXmlElement& File, const std::string& Path) const;
    [[nodiscard]] std::string FormName(const std::string& CodeFile, const std::string& DependentFile) const;
    /// Compiles a file to the resource of this name and adds that to the list.
    [[nodiscard]] bool AddResx(const std::string& SourceFile, const std::string& Name) const;
    [[nodiscard]] bool CompileResx(const std::string& SourceFile, const std::string& Destination) const;
    [[nodiscard]] bool ProcessLicx(const std::string& LicenseFile) const;
    /// The assemblies of the licensed controls, one for each line of the file.
    [[nodiscard]] std::vector<std::string> LicensedModules(const std::string& LicenseFile) const;
    void WarnOfMissingLicense(const std::string& ControlClass) const;
    [[nodiscard]] bool RunLicenseCompiler(const std::string& LicenseFile, const std::string& Arguments) const;

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
    std::string FSDKFolder;
    std::unique_ptr<IQXProcess> FProcess;                   ///< of all tools, one after the other
    mutable std::unordered_set<std::string> FFormResources; ///< of the whole project, listed when first needed
};
