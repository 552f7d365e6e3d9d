#pragma once

#include "host/QXProcess.h"
#include "package/compiler/QXProjectLoader.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

/// Compiles the resources and licenses of a project under the names that its code expects, and puts them into the
/// action's resource lists. Each operation gives false after telling the log why.
class TQXResourceProcessor
{
public:
    TQXResourceProcessor(TQXManagedCompilerAction& Action, const TProjectLoad& Load);

    /// Tells which of the files depend on the same source file, by the attribute Owner.
    void ListFormResources(const std::vector<TXmlElement>& Elements, const char* Owner);
    [[nodiscard]] bool ProcessVSEmbeddedResource(const TXmlElement& File) const;
    [[nodiscard]] bool ProcessBorlandEmbeddedResource(const TXmlElement& File) const;
    /// Embeds a file as it stands; it goes into the list unless the IDE gives it a name.
    void Embed(const TXmlElement& File, const std::string& Path, std::vector<std::string>& Unnamed) const;

private:
    void Log(const std::string& Message) const { FAction.SendMessage(Message); }
    [[nodiscard]] bool ProcessByExtension(const TXmlElement& File, const std::string& Path) const;
    [[nodiscard]] bool ChooseResourceCompiler() const;
    /// A resource of its own, named after its file.
    [[nodiscard]] bool ProcessResx(const TXmlElement& File, const std::string& SourceFile) const;
    /// A resource named after the class in the source file that it belongs to.
    [[nodiscard]] bool ProcessFormResx(const TXmlElement& File, const std::string& SourceFile,
                                       const std::string& DependentFile) const;
    /// The name by the folder that the project shows, where the IDE has it so and the action's rules have not; else
    /// empty.
    [[nodiscard]] std::string ShownName(const TXmlElement& File) const;
    /// The culture of a resource that goes into a satellite assembly, else empty.
    [[nodiscard]] std::string SatelliteOf(const std::string& SourceFile) const;
    /// The name of the file without extension and such a culture.
    [[nodiscard]] std::string StemOf(const std::string& SourceFile) const;
    /// What parts the name of a form's resource from those of the form's others, if there are any: its culture
    /// (".de-DE"), or the name of its file if that is not the form's.
    [[nodiscard]] std::string SuffixAmongSiblings(const std::string& Path, const std::string& CodeFile) const;
    /// What stands in for the name of a class that was not found; Name: what is known of it.
    [[nodiscard]] std::string NameWithoutClass(const std::string& Name, const std::string& DependentFile) const;
    /// Compiles a file to the resource of this name, without culture and extension, and adds that to the list.
    [[nodiscard]] bool AddResx(const std::string& SourceFile, std::string Name) const;
    [[nodiscard]] bool CompileResx(const std::string& SourceFile, const std::string& Destination) const;
    [[nodiscard]] bool ProcessLicx(const std::string& LicenseFile) const;
    /// The assemblies of the licensed controls, one for each line of the file.
    [[nodiscard]] std::vector<std::string> LicensedModules(const std::string& LicenseFile) const;
    void WarnOfMissingLicense(const std::string& ControlClass) const;
    [[nodiscard]] bool RunLicenseCompiler(const std::string& LicenseFile, const std::string& Arguments) const;

    TQXManagedCompilerAction& FAction;
    const TProjectLoad& FLoad;
    std::unique_ptr<IQXProcess> FProcess; ///< of all tools, one after the other
    /// The bare names of the resources that depend on a source file; names in the form that ignores case.
    std::unordered_map<std::string, std::vector<std::string>> FFormResources;
};
