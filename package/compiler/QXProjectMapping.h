#pragma once

#include "package/compiler/QXDotNetManagedCompilerAction.h"

#include <initializer_list>
#include <string>
#include <string_view>

class TXmlElement;

/// The side of a project compiler that knows project files: which it takes and how their settings become those of the
/// compiler. A concrete compiler derives from it beside its language's class.
class TQXProjectMapping
{
public:
    virtual ~TQXProjectMapping() = default;
    TQXProjectMapping(const TQXProjectMapping&) = delete;
    TQXProjectMapping& operator=(const TQXProjectMapping&) = delete;

    /// Fills the settings from a project file. False: the log tells why.
    [[nodiscard]] bool LoadProjectFile(const std::string& FileName);
    /// Gives the names of a project's configurations; false for a file that is missing or no XML.
    [[nodiscard]] bool LoadConfigListFromProject(const std::string& FileName, TStringList& List) const;
    /// A configuration's part of the object folder's path.
    [[nodiscard]] std::string UnMangleConfigName(const std::string& Name) const;
    /// The generation of a Visual Studio project file, which must hold the language's element.
    [[nodiscard]] TDotNetVSVersion DetectVSVersion(const std::string& FileName, const TXmlElement& Root) const;

    /// The filter of the dialog that asks for a project file.
    [[nodiscard]] virtual std::string GetProjectFilter() const = 0;
    /// The name of the language's element in a Visual Studio project file; empty for compilers that read none.
    [[nodiscard]] virtual std::string GetCompilerTypeInProjectFile(const std::string& /*FileName*/) const { return {}; }
    /// Take over the project's settings, those of its configuration and what else the language has.
    virtual void LoadSettingsFromProjFile(const TXmlElement& Settings);
    virtual void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config);
    [[nodiscard]] virtual bool LoadCompilerOtherSettings(const std::string& FileName, const TXmlElement& Root);
    /// Gives the full name of the first class of a source file, for the names of its resources. Name is written
    /// also when there is none.
    [[nodiscard]] virtual bool DetectNameSpace(const std::string& FileName, std::string& Name) const = 0;

protected:
    explicit TQXProjectMapping(TQXManagedCompilerAction& Action) : FAction(Action) {}
    /// Loads the project and gives the tool its arguments; the switches are for compact projects.
    [[nodiscard]] bool GetProjectCommandLine(ICommandLineBuilder& Builder,
                                             std::initializer_list<std::string_view> CompactSwitches);
    [[nodiscard]] bool ValidateProject(IQXActionValidationError& Errors) const;
    /// Takes over the project's icon.
    void LoadIcon(const TXmlElement& Settings);

private:
    TQXManagedCompilerAction& FAction;
};
