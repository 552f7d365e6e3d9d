#include "package/plugin/QXDotNetReg.h"

#include "host/QXServices.h"
#include "package/compiler/QXBorlandCSBuilderProjCompilerAction.h"
#include "package/compiler/QXCSProjCompilerAction.h"
#include "package/compiler/QXCSharpCompilerAction.h"
#include "package/compiler/QXJSharpDotNetCompilerAction.h"
#include "package/compiler/QXJSharpProjCompilerAction.h"
#include "package/compiler/QXVBDotNetCompilerAction.h"
#include "package/compiler/QXVBProjCompilerAction.h"
#include "package/plugin/QXDotNetOptionsImpl.h"
#include "package/plugin/QXProjectEditors.h"
#include "package/sdktools/QXDotNetGACAction.h"
#include "package/sourceupdate/QXAssemblyInfoUpdaterAction.h"
#include "package/sourceupdate/QXDotNetComRefAction.h"

#include <cstdio>
#include <exception>

namespace
{
template <typename T> TQXActionClass Action(const char* ClassName)
{
    return QXActionClass<T>(ClassName);
}

template <typename T> TQXPropertyEditorClass Editor(const char* ClassName)
{
    return {ClassName, [] { return std::make_unique<T>(); }};
}

/// One registered action.
struct TActionRow
{
    const char* ClassName;
    TQXActionClass (*MakeClass)(const char* ClassName);
    const char* DisplayName; ///< null: the class's own name
    const char* Category;
    const char* ImageName;
    const char* EditorName = nullptr; ///< the editor of the project file, at design time
    TQXPropertyEditorClass (*MakeEditor)(const char* ClassName) = nullptr;
    void (*RegisterMethods)() = nullptr; ///< for scripts
};

// clang-format off
constexpr TActionRow Actions[] = {
    {"TQXAssemblyInfoUpdaterAction", Action<TQXAssemblyInfoUpdaterAction>, nullptr, "Compilers", "ASSEMBLYUPATER",
     nullptr, nullptr, RegisterAssemblyInfoMethods},
    {"TQXCSharpCompilerAction", Action<TQXCSharpCompilerAction>, nullptr, "Compilers", "CSHARP"},
    {"TQXCSProjCompilerAction", Action<TQXCSProjCompilerAction>, nullptr, "Compilers", "CSHARP",
     "TQXCSharpProjectEditor", Editor<TQXCSharpProjectEditor>},
    {"TQXVBDotNetCompilerAction", Action<TQXVBDotNetCompilerAction>, nullptr, "Compilers", "VBDOTNET"},
    {"TQXVBProjCompilerAction", Action<TQXVBProjCompilerAction>, nullptr, "Compilers", "VBDOTNET",
     "TQXVBProjectEditor", Editor<TQXVBProjectEditor>},
    {"TQXJSharpCompilerAction", Action<TQXJSharpCompilerAction>, nullptr, "Compilers", "JSHARP"},
    {"TQXJSProjCompilerAction", Action<TQXJSProjCompilerAction>, nullptr, "Compilers", "JSHARP",
     "TQXJSharpProjectEditor", Editor<TQXJSharpProjectEditor>},
    {"TQXBorlandCSBuilderProjCompilerAction", Action<TQXBorlandCSBuilderProjCompilerAction>, nullptr, "Compilers", "BDSPROJ",
     "TQXCSharpBuilderProjectEditor", Editor<TQXCSharpBuilderProjectEditor>},
    {"TQXDotNetComReferenceFixAction", Action<TQXDotNetComReferenceFixAction>, nullptr, ".Net Tools", "ASSEMBLYUPATER"},
    {"TGACInstallAction", Action<TGACInstallAction>, "GAC Install [GACUTIL]", ".Net Tools", "GACINSTALL"},
    {"TGACUninstallAction", Action<TGACUninstallAction>, "GAC Uninstall [GACUTIL]", ".Net Tools", "GACUNINSTALL"},
    {"TGACListAction", Action<TGACListAction>, "GAC Download Cache [GACUTIL]", ".Net Tools", "GACLIST"},
};
// clang-format on

void Register(const TActionRow& Row, bool DesignTime)
{
    IQXActionServices& Services = QXActionServices();
    TQXActionClass Class = Row.MakeClass(Row.ClassName);
    std::string Name = Row.DisplayName ? Row.DisplayName : Class.ActionName;
    Services.RegisterAction(std::move(Name), Row.Category, std::move(Class), Row.ImageName);
    if (Row.RegisterMethods)
        Row.RegisterMethods();
    if (DesignTime && Row.MakeEditor)
        Services.RegisterPropertyEditor(TQXPropertyType::String, Row.ClassName, "ProjectFile",
                                        Row.MakeEditor(Row.EditorName));
}
} // namespace

void QXRegister(bool DesignTime)
{
    try
    {
        TQXDotNetOptions::RegisterOptions();
        for (const TActionRow& Row : Actions)
            Register(Row, DesignTime);
    }
    catch (const std::exception& Error)
    {
        // The host may be built otherwise than this library: no exception passes between them.
        std::fprintf(stderr, "QX40DotNetFrameWork: %s\n", Error.what());
    }
}
