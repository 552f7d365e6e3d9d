#include "tests/package/PackageTest.h"

#include "host/QXServices.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

TWorkFolder::TWorkFolder() : FOld(fs::current_path())
{
    std::string Name = (fs::temp_directory_path() / "quexley-package-XXXXXX").string();
    if (!mkdtemp(Name.data()))
        throw std::runtime_error("no temporary folder");
    FPath = fs::canonical(Name).string();
    fs::current_path(FPath);
}

TWorkFolder::~TWorkFolder()
{
    fs::current_path(FOld);
    fs::remove_all(FPath);
}

std::string TWorkFolder::Write(const std::string& Name, const std::string& Content) const
{
    const fs::path Path = fs::path(FPath) / Name;
    fs::create_directories(Path.parent_path());
    std::ofstream(Path, std::ios::binary) << Content;
    return Path.string();
}

std::string TWorkFolder::Read(const std::string& Name) const
{
    std::ifstream Stream(fs::path(FPath) / Name, std::ios::binary);
    EXPECT_TRUE(Stream) << Name << " cannot be read";
    return (std::ostringstream() << Stream.rdbuf()).str();
}

TPackageHost::TPackageHost() : Tools(Folder.Path() + "/tools")
{
    Runtime.SetPackageSource([] { QXRegister(false); });
    SetDotNetVersions({{"v2.0", Tools, Tools}});
    for (const char* Tool : {"csc.exe", "vbc.exe", "vjc.exe", "resgen.exe", "gacutil.exe"})
        Folder.Write(std::string("tools/") + Tool);
}

void TPackageHost::UseStandInTools() const
{
    for (const char* Tool : {"resgen.exe", "lc.exe", "tlbimp.exe", "aximp.exe"})
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

bool SetProperty(TCustomQXAction& Action, const std::string& Name, const std::string& Value)
{
    const TQXProperty* Property = Action.FindProperty(Name);
    if (!Property || !Property->IsPersisted())
        return false;
    switch (Property->Type)
    {
    case TQXPropertyType::String:
        Property->Write(Value);
        return true;
    case TQXPropertyType::Boolean:
        Property->Write(Value == "true");
        return Value == "true" || Value == "false";
    case TQXPropertyType::Enumeration:
        Property->Write(Value);
        return std::find(Property->Elements.begin(), Property->Elements.end(), Value) != Property->Elements.end();
    case TQXPropertyType::StringList: {
        auto Items = std::get<std::vector<std::string>>(Property->Read());
        Items.push_back(Value);
        Property->Write(Items);
        return true;
    }
    default:
        return false;
    }
}

std::vector<std::string> Lines(const std::string& Text)
{
    TStringList List;
    List.SetText(Text);
    return List.Items();
}
