#pragma once

#include "package/compiler/QXDotNetCompilerOptions.h"
#include "package/plugin/QXDotNetAction.h"

#include <initializer_list>
#include <string>
#include <string_view>

class TXmlElement;

/// Base of every action that runs a .NET language compiler: holds the settings, turns them into a response file,
/// which is the tool's only argument, and fills them from project files.
class TQXManagedCompilerAction : public TQXDotNetAction, public TQXCompilerOptions
{
public:
    TQXManagedCompilerAction();

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    void OnSuccess(int ExitCode) override;
    void OnFailure(int ExitCode) override;
    void InitialiseScriptParams(TQXScript& Script) override;
    /// What the script for project references makes of a file name; the name itself if there is none.
    [[nodiscard]] std::string ResolveProjReferenceEvent(const std::string& FileName);

    /// Appends the switches, one a line; BaseDir is the expanded project directory. False ends the run.
    [[nodiscard]] virtual bool GenerateResponseFile(const std::string& BaseDir, TStringList& Lines);
    /// Adds the line SWITCH:VALUE, the value expanded, quoted if it holds a blank, and followed by Separator and the
    /// second value. Without a value the bare switch, if AddWhenEmpty. False: an expansion failed.
    [[nodiscard]] bool AddOptionToResponseFile(std::string_view Switch, std::string_view PropertyLabel,
                                               std::string_view Value, std::string_view SecondValue, TStringList& Lines,
                                               bool AddWhenEmpty, std::string_view Separator) const;

    /// Puts the settings that a project brings back to their defaults.
    virtual void ResetOptions();
    /// Fills the settings from a project file. False: the log tells why.
    [[nodiscard]] bool LoadProjectFile(const std::string& FileName);
    /// Gives the names of a project's configurations; false for a file that is missing or no XML.
    [[nodiscard]] bool LoadConfigListFromProject(const std::string& FileName, TStringList& List) const;

    /// A configuration's part of the object folder's path.
    [[nodiscard]] virtual std::string UnMangleConfigName(const std::string& Name) const;
    [[nodiscard]] virtual bool IsCompactFramework() const { return false; }
    /// Take over the project's settings, those of its configuration and what else the language has.
    virtual void LoadSettingsFromProjFile(const TXmlElement& Settings);
    virtual void LoadConfigCompilerOptionsFromProjFile(const TXmlElement& Config);
    [[nodiscard]] virtual bool LoadCompilerOtherSettings(const std::string& FileName, const TXmlElement& Root);
    /// Gives the full name of the first class of a source file, for the names of its resources. Name is written
    /// also when there is none.
    [[nodiscard]] virtual bool DetectNameSpace(const std::string& FileName, std::string& Name) const;
    /// The generation of a Visual Studio project file, which must hold the language's element.
    [[nodiscard]] TDotNetVSVersion DetectVSVersion(const std::string& FileName, const TXmlElement& Root) const;
    /// The filter of the dialog that asks for a project file; empty for compilers without projects.
    [[nodiscard]] virtual std::string GetProjectFilter() const { return {}; }
    /// The name of the language's element in a project file; empty for compilers that read none.
    [[nodiscard]] virtual std::string GetCompilerTypeInProjectFile(const std::string& /*FileName*/) const { return {}; }

    bool NoLogo = false;
    bool OutputInUTF8 = false;
    std::string ConfigName;
    std::string ProjectFile;
    std::string CFResGen; ///< compact framework resource compiler
    bool CopyConfigFiles = false;
    std::string LibLocations;
    std::string RootNameSpace; ///< prefix of generated resource names
    std::string SDKPath;
    bool KeepResponseFile = true;
    std::string ResponseFileName; ///< of the last run

protected:
    /// Publishes the settings that list compilers share, in order of declaration.
    void PublishListSettings(const TQXListCompilerSettings& Own);
    /// Declares the script that finds the output of project references.
    void AddScripts();
    /// Loads the project and gives the tool its arguments; the switches are for compact projects.
    [[nodiscard]] bool GetProjectCommandLine(ICommandLineBuilder& Builder,
                                             std::initializer_list<std::string_view> CompactSwitches);
    /// Expands the project directory, as an absolute path with trailing delimiter.
    [[nodiscard]] bool ExpandProjectDir(std::string& Folder) const;
    /// Writes a generated file anew. False, after telling the log with this message, if that fails.
    [[nodiscard]] bool WriteLines(const std::string& FileName, const TStringList& Lines,
                                  std::string_view Message) const;
    [[nodiscard]] bool AddOption(std::string_view Switch, std::string_view Label, std::string_view Value,
                                 TStringList& Lines) const;
    /// Adds a switch with each file of a list parted by ";", "," or line breaks.
    [[nodiscard]] bool AddFileSwitches(std::string_view Switch, std::string_view Label, std::string_view List,
                                       TStringList& Lines) const;
    static void AddWarningLevel(TDotNetWarningLevels Level, TStringList& Lines);
    [[nodiscard]] bool ValidateSources(IQXActionValidationError& Errors, bool HasSources) const;
    [[nodiscard]] bool ValidateProject(IQXActionValidationError& Errors) const;

private:
    enum class TNaming { None, UnlessCompiled, Always };

    void DeleteResponseFile() const;
    void AddDebugSwitches(TStringList& Lines) const;
    [[nodiscard]] bool AddOutputSwitches(TStringList& Lines) const;
    [[nodiscard]] bool AddReferences(TStringList& Lines) const;
    [[nodiscard]] bool AddLinkResources(TStringList& Lines) const;
    [[nodiscard]] bool AddResources(const std::string& BaseDir, std::string_view Label, const std::string& List,
                                    TNaming Naming, TStringList& Lines) const;
    [[nodiscard]] bool AddRecursion(TStringList& Lines) const;
    [[nodiscard]] bool AddSources(TStringList& Lines) const;
};
