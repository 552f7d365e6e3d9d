// A sample of the options objects that hold where a tool lies.
#include "package/plugin/QXToolOptions.h"
#include "tests/package/PackageTest.h"

#include <array>

namespace
{
std::string InstalledSample(TRegistryRoot Root)
{
    return QXToolInRegistryFolder(Root, "\\Software\\Sample", "InstallRoot", "sample.exe");
}

class TSampleToolOptions final : public TQXToolOptions
{
public:
    TSampleToolOptions() { PublishTool("SampleExe", FSampleExe, "Path of sample.exe").StoredAs("SampleLocation"); }

    static std::string GetName() { return "Sample"; }
    static std::string GetCategory() { return ".Net Tools"; }
    static std::string GetOptionKey() { return "Sample"; }
    void LoadOptions(IQXOptionsReader& Reader) override
    {
        TQXToolOptions::LoadOptions(Reader);
        FindTool(FSampleExe, {[] { return InstalledSample(TRegistryRoot::CurrentUser); },
                              [] { return InstalledSample(TRegistryRoot::LocalMachine); }});
    }

    [[nodiscard]] const std::string& GetSampleExe() const { return FSampleExe; }
    void SetSampleExe(std::string_view Location) { Change(FSampleExe, Location); }

private:
    std::string FSampleExe;
};

TSampleToolOptions* SampleOptions()
{
    return QXFindOptions<TSampleToolOptions>();
}
} // namespace

TEST(ToolOptions, HoldWhatIsStoredElseWhatIsFoundFirst)
{
    const std::string User = "[HKEY_CURRENT_USER\\Software\\Sample]\n\"InstallRoot\"=\"/opt/user\"\n\n";
    const std::string Empty = "[HKEY_CURRENT_USER\\Software\\Sample]\n\"InstallRoot\"=\"\"\n\n";
    const std::string Machine = "[HKEY_LOCAL_MACHINE\\Software\\Sample]\n\"InstallRoot\"=\"/opt/all/\"\n";
    const std::array<std::string, 3> Cases[] = {
        {"", "", ""},
        {"", User + Machine, "/opt/user/sample.exe"},
        {"", Empty + Machine, "/opt/all/sample.exe"},
        {"SampleLocation = '/gone/sample.exe'", User, "/gone/sample.exe"},
    };
    for (const auto& [Stored, Keys, Expected] : Cases)
    {
        TPackageHost Host;
        EXPECT_EQ(SampleOptions(), nullptr);
        QXOptionsServices().RegisterOptions(QXOptionsClass<TSampleToolOptions>("TSampleToolOptions"), "SAMPLE");
        Host.SetOptions("[Sample]\n" + Stored);
        Host.SetRegistry("REGEDIT4\n\n" + Keys);
        EXPECT_EQ(SampleOptions()->GetSampleExe(), Expected) << Stored << Keys;
        EXPECT_FALSE(SampleOptions()->IsModified());
        SampleOptions()->SetSampleExe(Expected + "x");
        EXPECT_TRUE(SampleOptions()->IsModified());
        EXPECT_EQ(SampleOptions()->FindProperty("SampleExe")->Kind, TQXTextKind::File);
    }
}
