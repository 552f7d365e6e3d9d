#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "runtime/Packages.h"

#include <filesystem>

namespace fs = std::filesystem;

TPackageHost::TPackageHost() : Tools(Folder.Path() + "/tools")
{
    Runtime.SetPackageSource([] {
        QXRegister(false);
        LoadNamedPackages({QUEXLEY_BINARY_DIR "/lib/quexley/QX40Basics.so"}, false);
    });
    SetDotNetVersions({{"v2.0", Tools, Tools}});
    for (const char* Tool : {"csc.exe", "vbc.exe", "vjc.exe", "resgen.exe", "gacutil.exe"})
        Folder.Write(std::string("tools/") + Tool);
}

void TPackageHost::UseStandInTools() const
{
    for (const char* Tool : {"resgen.exe", "lc.exe", "tlbimp.exe", "aximp.exe", "al.exe"})
    {
        const fs::path Link = fs::path(Tools) / Tool;
        fs::remove(Link);
        fs::create_symlink(QUEXLEY_FAKES_DIR "/sdk_tool", Link);
    }
}

std::unique_ptr<TCustomQXAction> TPackageHost::Create(const std::string& ClassName)
{
    const TQXActionRegistration* Registration = Runtime.ActionServices().FindAction(ClassName);
    if (!Registration)
        throw std::runtime_error("no action " + ClassName);
    return Registration->ActionClass.Create();
}

std::vector<std::string> Lines(const std::string& Text)
{
    TStringList List;
    List.SetText(Text);
    return List.Items();
}
