#include "QXCopyFilesAction.h"
#include "QXDeleteFilesAction.h"
#include "QXMakeArchiveAction.h"
#include "QXRunProgramAction.h"
#include "host/QXServices.h"

#include <exception>
#include <string>

namespace
{
constexpr const char* Category = "Files and Programs";

template <typename T> void Register(const char* ClassName, const char* ImageName)
{
    QXActionServices().RegisterAction(T::GetActionName(), Category, QXActionClass<T>(ClassName), ImageName);
}

void RegisterAll()
{
    Register<TQXRunProgramAction>("TQXRunProgramAction", "RUNPROGRAM");
    Register<TQXCopyFilesAction>("TQXCopyFilesAction", "COPYFILES");
    Register<TQXDeleteFilesAction>("TQXDeleteFilesAction", "DELETEFILES");
    Register<TQXMakeArchiveAction>("TQXMakeArchiveAction", "MAKEARCHIVE");
}
} // namespace

/// The package's one exported name. What goes wrong is told to the host: no exception passes between them.
extern "C"
#if defined(_WIN32)
    __declspec(dllexport)
#else
    __attribute__((visibility("default")))
#endif
        void QXRegister(bool /*DesignTime*/) noexcept
{
    try
    {
        RegisterAll();
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
