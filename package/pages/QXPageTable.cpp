#include "package/pages/QXPageTable.h"

#include "package/pages/QXALGenericFrame.h"
#include "package/pages/QXASPNetCompilerFrame.h"
#include "package/pages/QXASPNetStrongNameFrame.h"
#include "package/pages/QXASPNetTargetFrame.h"
#include "package/pages/QXASPdotNetIISInstallFrame.h"
#include "package/pages/QXAssemblyInfoUpdaterEntriesFrame.h"
#include "package/pages/QXAssemblyInfoUpdaterFrame.h"
#include "package/pages/QXCSharpBuilderPropertyPage.h"
#include "package/pages/QXCSharpCompilerAssembliesFrame.h"
#include "package/pages/QXCSharpCompilerDebuggingFrame.h"
#include "package/pages/QXCSharpCompilerMainFrame.h"
#include "package/pages/QXCSharpCompilerOptionsFrame.h"
#include "package/pages/QXCSharpCompilerResourcesFrame.h"
#include "package/pages/QXDemeanorExcludeFrame.h"
#include "package/pages/QXDemeanorOptionsFrame.h"
#include "package/pages/QXDemeanorPEFrame.h"
#include "package/pages/QXDotNetComRefFrame.h"
#include "package/pages/QXDotNetOptionsFrame.h"
#include "package/pages/QXDotfuscatorFrame.h"
#include "package/pages/QXDotfuscatorOptionsFrame.h"
#include "package/pages/QXFrameFxCopAdditional.h"
#include "package/pages/QXFrameFxCopOptions.h"
#include "package/pages/QXFrameFxCopRules.h"
#include "package/pages/QXFrameFxCopTargets.h"
#include "package/pages/QXFrameFxCopTypesAndMembers.h"
#include "package/pages/QXFxCopOptionsFrame.h"
#include "package/pages/QXGACInstallFrame.h"
#include "package/pages/QXGACListFrame.h"
#include "package/pages/QXGACUninstallFrame.h"
#include "package/pages/QXJSharpCompilerAssembliesFrame.h"
#include "package/pages/QXJSharpCompilerDebuggingFrame.h"
#include "package/pages/QXJSharpCompilerMainFrame.h"
#include "package/pages/QXJSharpCompilerOptionsFrame.h"
#include "package/pages/QXJSharpCompilerResourcesFrame.h"
#include "package/pages/QXJSharpPropertyPage.h"
#include "package/pages/QXMSBuildFrame.h"
#include "package/pages/QXNAntFrame.h"
#include "package/pages/QXNAntOptionsFrame.h"
#include "package/pages/QXNDOCFrame.h"
#include "package/pages/QXNDocDocumenterFrame.h"
#include "package/pages/QXNDocOptionsFrame.h"
#include "package/pages/QXNGen20AssemblyFrame.h"
#include "package/pages/QXNGen20OptionsFrame.h"
#include "package/pages/QXNGen20UpdateFrame.h"
#include "package/pages/QXNUnitActionFrame.h"
#include "package/pages/QXNUnitOptionsFrame.h"
#include "package/pages/QXProjectCompilerFrame.h"
#include "package/pages/QXRegasmActionFrame.h"
#include "package/pages/QXResGenFrame.h"
#include "package/pages/QXSNExtractKeyFrame.h"
#include "package/pages/QXSNGenerateKeyPairFrame.h"
#include "package/pages/QXSNGenericFrame.h"
#include "package/pages/QXSNInstallKeyPairFrame.h"
#include "package/pages/QXSNResignFrame.h"
#include "package/pages/QXSNVerifySNFrame.h"
#include "package/pages/QXTLBExportFrame.h"
#include "package/pages/QXTLBImpLoggingFrame.h"
#include "package/pages/QXTLBImportFrame.h"
#include "package/pages/QXTLBImportReferencesFrame.h"
#include "package/pages/QXTLBImportSNFrame.h"
#include "package/pages/QXVBDOTNETCompilerMainFrame.h"
#include "package/pages/QXVBDotNetCompilerAssembliesFrame.h"
#include "package/pages/QXVBDotNetCompilerOptionsFrame.h"
#include "package/pages/QXVBDotNetCompilerResourcesFrame.h"
#include "package/pages/QXVBDotNetDebuggingFrame.h"
#include "package/pages/QXVBProjPropertyPage.h"
#include "package/pages/QXXenoCodeFrame.h"
#include "package/pages/QXXenoCodeOptionsFrame.h"

#include <array>

namespace
{
/// A class with its pages; the list ends before the first that is empty.
struct TRow
{
    const char* ClassName;
    std::array<TQXPageClass, 5> Pages;
};

#define QX_PAGE(Class) QXPageClass<Class>(#Class)

// In the order in which the classes are registered.
// clang-format off
constexpr TRow Rows[] = {
    {"TQXDotNetOptions", {QX_PAGE(TDotNetOptionsFrame)}},
    {"TQXAssemblyInfoUpdaterAction", {QX_PAGE(TAssemblyInfoUpdaterFrame), QX_PAGE(TAssemblyInfoUpdaterEntriesFrame)}},
    {"TQXCSharpCompilerAction",
     {QX_PAGE(TCSharpCompilerMainFrame),
      QX_PAGE(TCSharpCompilerOptionsFrame),
      QX_PAGE(TCSharpCompilerDebuggingFrame),
      QX_PAGE(TCSharpCompilerAssembliesFrame),
      QX_PAGE(TCSharpCompilerResourcesFrame)}},
    {"TQXCSProjCompilerAction", {QX_PAGE(TProjectCompilerFrame)}},
    {"TQXVBDotNetCompilerAction",
     {QX_PAGE(TVBDOTNETCompilerMainFrame),
      QX_PAGE(TVBDotNetCompilerOptionsFrame),
      QX_PAGE(TVBDotNetDebuggingFrame),
      QX_PAGE(TVBDotNetCompilerAssembliesFrame),
      QX_PAGE(TVBDotNetCompilerResourcesFrame)}},
    {"TQXVBProjCompilerAction", {QX_PAGE(TVBProjPropertyPage)}},
    {"TQXJSharpCompilerAction",
     {QX_PAGE(TJSharpCompilerMainFrame),
      QX_PAGE(TJSharpCompilerOptionsFrame),
      QX_PAGE(TJSharpCompilerDebuggingFrame),
      QX_PAGE(TJSharpCompilerAssembliesFrame),
      QX_PAGE(TJSharpCompilerResourcesFrame)}},
    {"TQXJSProjCompilerAction", {QX_PAGE(TJSharpPropertyPage)}},
    {"TSNGenerateKeyPair", {QX_PAGE(TSNGenerateKeyPairFrame)}},
    {"TSNVerifyAssembly", {QX_PAGE(TSNVerifySNFrame)}},
    {"TSNInstallKeyPair", {QX_PAGE(TSNInstallKeyPairFrame)}},
    {"TSNExtractPublicKey", {QX_PAGE(TSNExtractKeyFrame)}},
    {"TSNResignAssembly", {QX_PAGE(TSNResignFrame)}},
    {"TTLBImportAction", {QX_PAGE(TTLBImportFrame), QX_PAGE(TTLBImportReferencesFrame), QX_PAGE(TTLBImportSNFrame), QX_PAGE(TTLBImpLoggingFrame)}},
    {"TTLBExportAction", {QX_PAGE(TTLBExportFrame)}},
    {"TSNGenericSN", {QX_PAGE(TSNGenericFrame)}},
    {"TALGenericAL", {QX_PAGE(TALGenericFrame)}},
    {"TMSBuildAction", {QX_PAGE(TMSBuildFrame)}},
    {"TQXBorlandCSBuilderProjCompilerAction", {QX_PAGE(TCSharpBuilderPropertyPage)}},
    {"TQXNUnitOptions", {QX_PAGE(TNUnitOptionsFrame)}},
    {"TQXNUnitAction", {QX_PAGE(TNUnitActionFrame)}},
    {"TQXNAntOptions", {QX_PAGE(TNAntOptionsFrame)}},
    {"TNAntAction", {QX_PAGE(TNAntFrame)}},
    {"TQXNDocOptions", {QX_PAGE(TNDocOptionsFrame)}},
    {"TQXNDocAction", {QX_PAGE(TNDOCFrame), QX_PAGE(TNDocDocumenterFrame)}},
    {"TQXResGenAction", {QX_PAGE(TResGenFrame)}},
    {"TQXFxCopOptions", {QX_PAGE(TFxCopOptionsFrame)}},
    {"TQXFxCopAction",
     {QX_PAGE(TFrameFxCopTargets), QX_PAGE(TFrameFxCopRules), QX_PAGE(TFrameFxCopOptions), QX_PAGE(TFrameFxCopTypesAndMembers), QX_PAGE(TFrameFxCopAdditional)}},
    {"TQXDotfuscatorOptions", {QX_PAGE(TDotfuscatorOptionsFrame)}},
    {"TQXDotfuscatorAction", {QX_PAGE(TDotfuscatorFrame)}},
    {"TQXDemeanorOptions", {QX_PAGE(TDemeanorOptionsFrame)}},
    {"TQXDemeanorAction", {QX_PAGE(TDemeanorPEFrame), QX_PAGE(TDemeanorExcludeFrame)}},
    {"TQXXenoCodeOptions", {QX_PAGE(TXenoCodeOptionsFrame)}},
    {"TQXXenoCodeAction", {QX_PAGE(TXenoCodeFrame)}},
    {"TQXDotNetComReferenceFixAction", {QX_PAGE(TDotNetComRefFrame)}},
    {"TQXNGen20InstallAction", {QX_PAGE(TNGen20AssemblyFrame), QX_PAGE(TNGen20OptionsFrame)}},
    {"TQXNGen20UninstallAction", {QX_PAGE(TNGen20AssemblyFrame), QX_PAGE(TNGen20OptionsFrame)}},
    {"TQXNGen20UpdateAction", {QX_PAGE(TNGen20UpdateFrame)}},
    {"TASPIISRegGeneric", {QX_PAGE(TASPdotNetIISInstallFrame)}},
    {"TASPNetCompilerAction", {QX_PAGE(TASPNetCompilerFrame), QX_PAGE(TASPNetTargetFrame), QX_PAGE(TASPNetStrongNameFrame)}},
    {"TGACInstallAction", {QX_PAGE(TGACInstallFrame)}},
    {"TGACUninstallAction", {QX_PAGE(TGACUninstallFrame)}},
    {"TGACListAction", {QX_PAGE(TGACListFrame)}},
    {"TQXRegasmAction", {QX_PAGE(TQXRegasmActionFrame)}},
};
// clang-format on
#undef QX_PAGE
} // namespace

std::span<const TQXPageClass> PagesOf(std::string_view ClassName)
{
    for (const TRow& Row : Rows)
        if (Row.ClassName == ClassName)
        {
            std::size_t Count = 0;
            while (Count < Row.Pages.size() && Row.Pages[Count].Create)
                ++Count;
            return std::span(Row.Pages).first(Count);
        }
    return {};
}
