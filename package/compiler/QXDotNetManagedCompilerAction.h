#pragma once

#include "package/compiler/QXDotNetCompilerOptions.h"
#include "package/compiler/QXResponseFile.h"
#include "package/plugin/QXDotNetAction.h"

#include <string>
#include <string_view>
#include <vector>

/// Base of every action that runs a .NET language compiler: holds the settings, gives them to the
/// tool in a response file, which is its only argument.
class TQXManagedCompilerAction : public TQXDotNetAction, public TQXCompilerOptions
{
public:
    TQXManagedCompilerAction();

    [[nodiscard]] TQXDotNetToolType GetDotNetToolType() const override { return ttFramework; }
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] std::vector<std::string> GetOutputs() override;
    [[nodiscard]] bool AfterExecute() override;
    void OnSuccess(int ExitCode) override;
    void OnFailure(int ExitCode) override;
    void InitialiseScriptParams(TQXScript& Script) override;
    /// What the script for project references makes of a file name; the name itself if there is none.
    [[nodiscard]] std::string ResolveProjReferenceEvent(const std::string& FileName);

    /// Adds the switches. False ends the run.
    [[nodiscard]] virtual bool GenerateResponseFile(TQXResponseFile& File);
    /// Puts the settings that a project brings back to their defaults.
    virtual void ResetOptions();
    [[nodiscard]] virtual bool IsCompactFramework() const { return false; }

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
    /// Gives the project directory, expanded if a person typed it, as an absolute path with trailing delimiter.
    [[nodiscard]] bool ExpandProjectDir(std::string& Folder) const;
    /// Writes a generated file anew. False, after telling the log with this message, if that fails.
    [[nodiscard]] bool WriteLines(const std::string& FileName, const TStringList& Lines,
                                  std::string_view Message) const;
    [[nodiscard]] bool AddIcons(TQXResponseFile& File) const;
    [[nodiscard]] bool AddWin32Resources(TQXResponseFile& File, std::string_view Switch) const;
    static void AddWarningLevel(TDotNetWarningLevels Level, TQXResponseFile& File);
    [[nodiscard]] bool ValidateSources(IQXActionValidationError& Errors, bool HasSources) const;

private:
    /// The files of a setting, those of the project if one is loaded.
    [[nodiscard]] TQXFileSetting FileSetting(std::string_view Label, const std::string& Typed,
                                             const std::vector<std::string>& Exact) const;
    [[nodiscard]] bool AddResources(TQXResponseFile& File) const;
    [[nodiscard]] bool AddOutputSwitches(TQXResponseFile& File) const;
    [[nodiscard]] bool AddSources(TQXResponseFile& File) const;
    void DeleteResponseFile() const;
};
