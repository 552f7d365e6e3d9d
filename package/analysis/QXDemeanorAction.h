#pragma once

#include "host/QXExecuteAction.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

enum TDemeanorNamingOption { dnoName, dnoNumeric, dnoUnicode };
constexpr auto QXElements(TDemeanorNamingOption)
{
    return std::array<std::string_view, 3>{"dnoName", "dnoNumeric", "dnoUnicode"};
}

enum TDemeanorCategory {
    dcEnumerations,
    dcEvents,
    dcFields,
    dcMethods,
    dcParameters,
    dcProperties,
    dcTypes,
    dcResources
};
constexpr auto QXElements(TDemeanorCategory)
{
    return std::array<std::string_view, 8>{"dcEnumerations", "dcEvents",     "dcFields", "dcMethods",
                                           "dcParameters",   "dcProperties", "dcTypes",  "dcResources"};
}
using TDemeanorCategories = TQXSet<TDemeanorCategory>;

/// Obfuscates one assembly with Demeanor. The properties of the tool's Enterprise edition are kept for projects that
/// hold them; no page shows them and the tool does not get them.
class TQXDemeanorAction final : public TQXExecuteAbstractAction
{
public:
    TQXDemeanorAction();

    static std::string GetActionName() { return "Demeanor"; }
    static int GetHelpTopicID() { return 3840; }
    static std::string GetQuickHelpFilename() { return "Plugins\\Demeanor.html"; }

    [[nodiscard]] std::string GetExecutable() override;
    [[nodiscard]] bool GetCommandLine(ICommandLineBuilder& Builder) override;
    [[nodiscard]] bool InterpretResult(int ExitCode) override;
    [[nodiscard]] std::vector<std::string> GetOutputs() override;
    [[nodiscard]] bool Validate(IQXActionValidationError& Errors) override;
    void GetHiddenProperties(TStringList& List) const override;

    std::string AssemblyName;
    bool ObfuscateAll = false;
    bool CompilerControlled = false;
    TStringList Exclude;
    bool InSitu = false;
    std::string OutputFolder;
    TDemeanorNamingOption Naming = dnoName;
    std::string ReportFile;
    TDemeanorCategories ObfuscateCategories; ///< all of them at first
    bool ForceParameters = false;
    TStringList RegularExpressions;
    bool Verbose = false;
    bool IsEnterprise = false;
    std::string EnterpriseAssemblyName;
    TStringList EnterpriseExcludeAssemblyName;
    bool EnterpriseApplication = false;
    std::string EnterpriseConfigFile;
    bool EnterpriseEncryptStrings = false;
    bool EnterpriseNoSerializable = false;
    TStringList EnterpriseSatelliteAssemblies;

private:
    void PublishAll();
    void PublishEnterprise();
    void AddExclusions(ICommandLineBuilder& Builder) const;
    void AddTargets(ICommandLineBuilder& Builder) const;
    void AddCategories(ICommandLineBuilder& Builder) const;
};
