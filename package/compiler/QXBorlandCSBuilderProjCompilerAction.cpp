#include "package/compiler/QXBorlandCSBuilderProjCompilerAction.h"

#include "package/compiler/QXNameSpaceDetection.h"
#include "package/compiler/QXProjectXml.h"

namespace
{
constexpr TNamedValue<TDotNetTarget> Targets[] = {{"Assembly", TDotNetTarget::Lib},
                                                  {"Console", TDotNetTarget::Exe},
                                                  {"Module", TDotNetTarget::Module},
                                                  {"Windows", TDotNetTarget::WindowsExe}};
}

TQXBorlandCSBuilderProjCompilerAction::TQXBorlandCSBuilderProjCompilerAction()
    : TQXProjectMapping(static_cast<TQXManagedCompilerAction&>(*this))
{
    Publish("ProjectFile", ProjectFile, "The project file to compile").File().Required("src/Acme.Core.bdsproj");
    Publish("ConfigName", ConfigName, "The configuration to build, as the project file names it")
        .Expression()
        .Required("Release");
    Publish("KeepResponseFile", KeepResponseFile, "Leave the response file on disk after the run");
}

bool TQXBorlandCSBuilderProjCompilerAction::GetCommandLine(ICommandLineBuilder& Builder)
{
    return GetProjectCommandLine(Builder, {});
}

std::string TQXBorlandCSBuilderProjCompilerAction::GetProjectFilter() const
{
    return "C# Builder Files (*.bdsproj)|*.bdsproj|All Files (*.*)|*.*";
}

void TQXBorlandCSBuilderProjCompilerAction::LoadConfigCompilerOptionsFromProjFile(const TXmlElement& OptionsSet)
{
    WarningLevel = FindWarningLevel(GetOptionValueString("Warning", OptionsSet));
    Incremental = GetOptionValueBoolean("Incremental", OptionsSet);
    DocFile = GetOptionValueString("DocumentationFile", OptionsSet);
    Project.Documentation = DocFile;
    RootNameSpace = GetOptionValueString("DefaultNamespace", OptionsSet);
    Debug = GetAttributeValueBoolean("DebugInformation", OptionsSet) ? TDotNetDebugOptions::DebugFull
                                                                     : TDotNetDebugOptions::DebugOff;
    Optimize = GetOptionValueBoolean("Optimization", OptionsSet);
    Checked = GetOptionValueBoolean("Overflow", OptionsSet);
    CompileUnsafe = GetOptionValueBoolean("ivUnsafe", OptionsSet);
    WarnAsError = GetOptionValueBoolean("WarningAsError", OptionsSet);
    Defines = GetOptionValueString("Defines", OptionsSet);
    OutputFile = GetOptionValueString("TargetName", OptionsSet);
    Target = FindNamedValue(Targets, GetOptionValueString("TargetType", OptionsSet), Target);
    MainClass = GetOptionValueString("Main", OptionsSet);
    BaseAddress = GetAttributeValueString("BaseAddress", OptionsSet);
}

bool TQXBorlandCSBuilderProjCompilerAction::DetectNameSpace(const std::string& FileName, std::string& Name) const
{
    return DetectCSharpNameSpace(FileName, Name);
}
