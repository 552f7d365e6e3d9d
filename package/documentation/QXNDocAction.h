#pragma once

#include "host/QXExecuteAction.h"
#include "package/documentation/QXNDocOptions.h"
#include "package/documentation/QXNDocSettings.h"

#include <array>
#include <string>
#include <string_view>

enum TNDocMode { ndocUseProjectFile, ndocAssemblies, ndocFindAssemblies };
constexpr auto QXElements(TNDocMode)
{
    return std::array<std::string_view, 3>{"ndocUseProjectFile", "ndocAssemblies", "ndocFindAssemblies"};
}

/// Has NDoc generate documentation for a project of its own, for assemblies or for all assemblies below a folder.
class TQXNDocAction final : public TQXExecuteAbstractAction
{
public:
    TQXNDocAction();

    static std::string GetActionName() { return "NDoc"; }
    static int GetHelpTopicID() { return 2770; }
    static std::string GetQuickHelpFilename() { return "Plugins\\NDoc.html"; }

    /// Gives the lists of settings the names that they lack, with empty values, at their ends.
    void InitProperties();
    void Loaded() override;
    [[nodiscard]] std::string GetExecutable() override;
    /// The folder of the input, else the tool's.
    [[nodiscard]] std::string GetStartingDir(const std::string& Exe) override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;

    TNDocMode NDocMode = ndocUseProjectFile;
    TStringList HtmlHelp2Props;
    TStringList JavaDocProps;
    TStringList VSDotNet2003Props;
    TStringList LaTeXProps;
    TStringList LinearHtmlProps;
    TStringList MSDNProps;
    TStringList MSDN2003Props;
    TStringList XMLProps;
    TDocumenter Documenter = docDefault;
    std::string ProjectFile;
    std::string FindDirectory;
    std::string MaximumDepth;
    bool Verbose = false;
    std::string NamespaceSummFile;
    TStringList Assemblies; ///< assembly=documentation by the compiler, which may be empty
    TNDocVersion NDocVersion = NDoc12;

private:
    void PublishSettings(std::string_view Name, TStringList& Settings, std::string_view Meaning);
    /// The settings of a documenter; null for the default one, which has none.
    [[nodiscard]] TStringList* SettingsOf(TDocumenter ADocumenter);
    [[nodiscard]] bool AddInput(ICommandLineBuilder& Builder);
    [[nodiscard]] bool AddAssemblies(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddAssembly(ICommandLineBuilder& Builder, std::size_t Index) const;
    [[nodiscard]] bool AddSearch(ICommandLineBuilder& Builder) const;
    void AddDocumenter(ICommandLineBuilder& Builder) const;
    [[nodiscard]] bool AddSettings(ICommandLineBuilder& Builder);
};
