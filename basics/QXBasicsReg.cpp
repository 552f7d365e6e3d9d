#include "QXCopyFilesAction.h"
#include "QXDeleteFilesAction.h"
#include "QXMakeArchiveAction.h"
#include "QXRunProgramAction.h"
#include "host/QXServices.h"
#include "pages/QXFilePages.h"

#include <exception>
#include <string>

namespace
{
constexpr const char* Category = "Files and Programs";

/// What is registered of an action, in the order in which users see it.
struct TRow
{
    TQXActionClass Class;
    const char* ImageName;
    TQXPageClass Page;
};

void RegisterAll(bool DesignTime)
{
    const TRow Rows[] = {
        {QXActionClass<TQXRunProgramAction>("TQXRunProgramAction"), "RUNPROGRAM",
         QXPageClass<TQXRunProgramFrame>("TQXRunProgramFrame")},
        {QXActionClass<TQXCopyFilesAction>("TQXCopyFilesAction"), "COPYFILES",
         QXPageClass<TQXCopyFilesFrame>("TQXCopyFilesFrame")},
        {QXActionClass<TQXDeleteFilesAction>("TQXDeleteFilesAction"), "DELETEFILES",
         QXPageClass<TQXDeleteFilesFrame>("TQXDeleteFilesFrame")},
        {QXActionClass<TQXMakeArchiveAction>("TQXMakeArchiveAction"), "MAKEARCHIVE",
         QXPageClass<TQXMakeArchiveFrame>("TQXMakeArchiveFrame")},
    };
    for (const TRow& Row : Rows)
    {
        QXActionServices().RegisterAction(Row.Class.ActionName, Category, Row.Class, Row.ImageName);
        if (DesignTime)
            QXActionServices().RegisterActionPages(Row.Class.ClassName, {&Row.Page, 1});
    }
}
} // namespace

/// The package's one exported name. What goes wrong is told to the host: no exception passes between them.
extern "C"
#if defined(_WIN32)
    __declspec(dllexport)
#else
    __attribute__((visibility("default")))
#endif
        void QXRegister(bool DesignTime) noexcept
{
    try
    {
        RegisterAll(DesignTime);
    }
    catch (const std::exception& Error)
    {
        QXActionServices().RegistrationFailed(std::string("QX40Basics: ") + Error.what());
    }
    catch (...)
    {
        QXActionServices().RegistrationFailed("QX40Basics: unknown exception");
    }
}
