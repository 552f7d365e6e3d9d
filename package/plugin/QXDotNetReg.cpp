#include "package/plugin/QXDotNetReg.h"

#include "host/QXServices.h"
#include "package/analysis/QXDemeanorAction.h"
#include "package/analysis/QXDemeanorOptions.h"
#include "package/analysis/QXDotfuscatorAction.h"
#include "package/analysis/QXDotfuscatorOptions.h"
#include "package/analysis/QXFxCopAction.h"
#include "package/analysis/QXFxCopOptions.h"
#include "package/analysis/QXXenoCodeAction.h"
#include "package/analysis/QXXenoCodeOptions.h"
#include "package/compiler/QXBorlandCSBuilderProjCompilerAction.h"
#include "package/compiler/QXCSProjCompilerAction.h"
#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXJSharpDotNetCompilerAction.h"
#include "package/compiler/QXJSharpProjCompilerAction.h"
#include "package/compiler/QXVBDotNetCompilerAction.h"
#include "package/compiler/QXVBProjCompilerAction.h"
#include "package/documentation/QXNDocAction.h"
#include "package/documentation/QXNDocOptions.h"
#include "package/pages/QXPageTable.h"
#include "package/plugin/QXDotNetOptionsImpl.h"
#include "package/plugin/QXProjectEditors.h"
#include "package/runners/QXNAntAction.h"
#include "package/runners/QXNAntOptions.h"
#include "package/runners/QXNUnitAction.h"
#include "package/runners/QXNUnitOptions.h"
#include "package/sdktools/QXASPNetCompilerAction.h"
#include "package/sdktools/QXDotNetALAction.h"
#include "package/sdktools/QXDotNetASPdotNETIISRegAction.h"
#include "package/sdktools/QXDotNetGACAction.h"
#include "package/sdktools/QXDotNetRegasmAction.h"
#include "package/sdktools/QXDotNetSNAction.h"
#include "package/sdktools/QXDotNetTLBExpAction.h"
#include "package/sdktools/QXDotNetTLBImpAction.h"
#include "package/sdktools/QXMSBuildAction.h"
#include "package/sdktools/QXNGen20InstallAction.h"
#include "package/sdktools/QXNGen20UninstallAction.h"
#include "package/sdktools/QXNGen20UpdateAction.h"
#include "package/sdktools/QXResgenAction.h"
#include "package/sourceupdate/QXAssemblyInfoUpdaterAction.h"
#include "package/sourceupdate/QXDotNetComRefAction.h"

#include <exception>
#include <string>

namespace
{
constexpr const char* BuildTools = "Build Tools";
constexpr const char* Compilers = "Compilers";
constexpr const char* DotNetTools = ".Net Tools";
constexpr const char* TestingTools = "Testing Tools";
constexpr const char* HelpCompilers = "Help Compilers";

struct TRow;

/// What goes with few classes.
struct TExtras
{
    const char* ScriptGlobal = nullptr;                ///< the name of an options object in scripts
    void (*RegisterForScripts)() = nullptr;            ///< methods, or an enumeration
    void (*RegisterEditor)(const TRow& Row) = nullptr; ///< of the project file, at design time
    const char* EditorName = nullptr;
};

/// One registered class.
struct TRow
{
    const char* ClassName;
    void (*Register)(const TRow& Row);
    const char* ImageName;
    const char* Category = nullptr;    ///< of an action
    const char* DisplayName = nullptr; ///< of an action; null: the class's own name
    TExtras Extras = {};
};

template <typename T> void Action(const TRow& Row)
{
    TQXActionClass Class = QXActionClass<T>(Row.ClassName);
    std::string Name = Row.DisplayName ? Row.DisplayName : Class.ActionName;
    QXActionServices().RegisterAction(std::move(Name), Row.Category, std::move(Class), Row.ImageName);
}

template <typename T> void Options(const TRow& Row)
{
    QXOptionsServices().RegisterOptions(QXOptionsClass<T>(Row.ClassName), Row.ImageName);
    if (Row.Extras.ScriptGlobal)
        QXScriptingServices().RegisterGlobal(Row.Extras.ScriptGlobal, [] {
            return QXScriptingServices().ObjectToVariant(
                *QXOptionsServices().GetOptions(T::GetCategory(), T::GetName()));
        });
}

template <typename T> void ProjectEditor(const TRow& Row)
{
    QXActionServices().RegisterPropertyEditor(TQXPropertyType::String, Row.ClassName, "ProjectFile",
                                              {Row.Extras.EditorName, [] { return std::make_unique<T>(); }});
}

/// An enumeration that scripts may use.
template <TQXEnumeration T, const char* Name> void ScriptType()
{
    QXScriptingServices().RegisterType(Name, QXElementNames<T>());
}
constexpr char NDocVersion[] = "TNDocVersion";
constexpr char XenoCodeVersion[] = "TXenoCodeVersion";

// Everything that the package registers, in the order in which users see it. An enumeration that scripts may use stands
// in the row behind which it is registered.
// clang-format off
constexpr TRow Rows[] = {
    {"TQXDotNetOptions", Options<TQXDotNetOptions>, "DOTNETOPT", nullptr, nullptr, {.ScriptGlobal = "DotNetOptionsObject"}},
    {"TQXAssemblyInfoUpdaterAction", Action<TQXAssemblyInfoUpdaterAction>, "ASSEMBLYUPATER", Compilers, nullptr,
     {.RegisterForScripts = RegisterAssemblyInfoMethods}},
    {"TQXCSharpCompilerAction", Action<TQXCSharpCompilerAction>, "CSHARP", Compilers},
    {"TQXCSProjCompilerAction", Action<TQXCSProjCompilerAction>, "CSHARP", Compilers, nullptr,
     {.RegisterEditor = ProjectEditor<TQXCSharpProjectEditor>, .EditorName = "TQXCSharpProjectEditor"}},
    {"TQXVBDotNetCompilerAction", Action<TQXVBDotNetCompilerAction>, "VBDOTNET", Compilers},
    {"TQXVBProjCompilerAction", Action<TQXVBProjCompilerAction>, "VBDOTNET", Compilers, nullptr,
     {.RegisterEditor = ProjectEditor<TQXVBProjectEditor>, .EditorName = "TQXVBProjectEditor"}},
    {"TQXJSharpCompilerAction", Action<TQXJSharpCompilerAction>, "JSHARP", Compilers},
    {"TQXJSProjCompilerAction", Action<TQXJSProjCompilerAction>, "JSHARP", Compilers, nullptr,
     {.RegisterEditor = ProjectEditor<TQXJSharpProjectEditor>, .EditorName = "TQXJSharpProjectEditor"}},
    {"TSNGenerateKeyPair", Action<TSNGenerateKeyPair>, "GENKEYPAIR", DotNetTools, "Generate Key Pair [SN]"},
    {"TSNVerifyAssembly", Action<TSNVerifyAssembly>, "VERIFYSN", DotNetTools, "Verify Strong Name [SN]"},
    {"TSNInstallKeyPair", Action<TSNInstallKeyPair>, "INSTALLKEY", DotNetTools, "Install Key in Container [SN]"},
    {"TSNExtractPublicKey", Action<TSNExtractPublicKey>, "EXTRACTKEY", DotNetTools, "Extract Public Key [SN]"},
    {"TSNResignAssembly", Action<TSNResignAssembly>, "RESIGNASS", DotNetTools, "Re-sign Assembly [SN]"},
    {"TTLBImportAction", Action<TTLBImportAction>, "RUNTLBIMPORT", DotNetTools, "Type Library Import [TLBIMP]"},
    {"TTLBExportAction", Action<TTLBExportAction>, "RUNTLBEXPORT", DotNetTools, "Type Library Export [TLBEXP]"},
    {"TSNGenericSN", Action<TSNGenericSN>, "RUNSN", DotNetTools},
    {"TALGenericAL", Action<TALGenericAL>, "RUNAL", DotNetTools},
    {"TMSBuildAction", Action<TMSBuildAction>, "MSBUILDICON", BuildTools},
    {"TQXBorlandCSBuilderProjCompilerAction", Action<TQXBorlandCSBuilderProjCompilerAction>, "BDSPROJ", Compilers, nullptr,
     {.RegisterEditor = ProjectEditor<TQXCSharpBuilderProjectEditor>, .EditorName = "TQXCSharpBuilderProjectEditor"}},
    {"TQXNUnitOptions", Options<TQXNUnitOptions>, "NUnit", nullptr, nullptr, {.ScriptGlobal = "NUnitOptionsObject"}},
    {"TQXNUnitAction", Action<TQXNUnitAction>, "NUNIT", TestingTools},
    {"TQXNAntOptions", Options<TQXNAntOptions>, "NANTICON"},
    {"TNAntAction", Action<TNAntAction>, "NANTICON", BuildTools},
    {"TQXNDocOptions", Options<TQXNDocOptions>, "NDOCICON", nullptr, nullptr,
     {.RegisterForScripts = ScriptType<TNDocVersion, NDocVersion>}},
    {"TQXNDocAction", Action<TQXNDocAction>, "NDOCICON", HelpCompilers},
    {"TQXResGenAction", Action<TQXResGenAction>, "RESGEN", DotNetTools},
    {"TQXFxCopOptions", Options<TQXFxCopOptions>, "FXCOPICON"},
    {"TQXFxCopAction", Action<TQXFxCopAction>, "FXCOPICON", DotNetTools},
    {"TQXDotfuscatorOptions", Options<TQXDotfuscatorOptions>, "DotfuscatorICON"},
    {"TQXDotfuscatorAction", Action<TQXDotfuscatorAction>, "DotfuscatorICON", DotNetTools},
    {"TQXDemeanorOptions", Options<TQXDemeanorOptions>, "DemeanorICON"},
    {"TQXDemeanorAction", Action<TQXDemeanorAction>, "DemeanorICON", DotNetTools},
    {"TQXXenoCodeOptions", Options<TQXXenoCodeOptions>, "XenoCodeICON", nullptr, nullptr,
     {.RegisterForScripts = ScriptType<TXenoCodeVersion, XenoCodeVersion>}},
    {"TQXXenoCodeAction", Action<TQXXenoCodeAction>, "XenoCodeICON", DotNetTools},
    {"TQXDotNetComReferenceFixAction", Action<TQXDotNetComReferenceFixAction>, "ASSEMBLYUPATER", DotNetTools},
    {"TQXNGen20InstallAction", Action<TQXNGen20InstallAction>, "NGENINSTALL", DotNetTools},
    {"TQXNGen20UninstallAction", Action<TQXNGen20UninstallAction>, "NGENUNINSTALL", DotNetTools},
    {"TQXNGen20UpdateAction", Action<TQXNGen20UpdateAction>, "NGENUPDATE", DotNetTools},
    {"TASPIISRegGeneric", Action<TASPIISRegGeneric>, "RUNASPNETREGIIS", DotNetTools, "Run ASPNET_REGIIS.EXE"},
    {"TASPNetCompilerAction", Action<TASPNetCompilerAction>, "ASPNETCOMPILER", DotNetTools},
    {"TGACInstallAction", Action<TGACInstallAction>, "GACINSTALL", DotNetTools, "GAC Install [GACUTIL]"},
    {"TGACUninstallAction", Action<TGACUninstallAction>, "GACUNINSTALL", DotNetTools, "GAC Uninstall [GACUTIL]"},
    {"TGACListAction", Action<TGACListAction>, "GACLIST", DotNetTools, "GAC Download Cache [GACUTIL]"},
    {"TQXRegasmAction", Action<TQXRegasmAction>, "RUNREGASM", DotNetTools, "Register Assembly in COM [REGASM]"},
};
// clang-format on

void RegisterPages(const TRow& Row)
{
    if (Row.Category)
        QXActionServices().RegisterActionPages(Row.ClassName, PagesOf(Row.ClassName));
    else
        QXOptionsServices().RegisterOptionsPages(Row.ClassName, PagesOf(Row.ClassName));
}

void Register(const TRow& Row, bool DesignTime)
{
    Row.Register(Row);
    if (Row.Extras.RegisterForScripts)
        Row.Extras.RegisterForScripts();
    if (DesignTime)
        RegisterPages(Row);
    if (DesignTime && Row.Extras.RegisterEditor)
        Row.Extras.RegisterEditor(Row);
}
} // namespace

void QXRegister(bool DesignTime) noexcept
{
    // The host may be built otherwise than this library: no exception passes between them.
    try
    {
        for (const TRow& Row : Rows)
            Register(Row, DesignTime);
    }
    catch (const std::exception& Error)
    {
        QXActionServices().RegistrationFailed(std::string("QX40DotNetFrameWork: ") + Error.what());
    }
    catch (...)
    {
        QXActionServices().RegistrationFailed("QX40DotNetFrameWork: unknown exception");
    }
}
