#include "tests/package/PackageTest.h"

#include "host/QXServices.h"
#include "package/sdktools/QXDotNetGACAction.h"
#include "platform/Files.h"
#include "runtime/HostErrors.h"
#include "runtime/Packages.h"

#include "gmock/gmock.h"

#include <cstdio>
#include <filesystem>
#include <set>
#include <sstream>

namespace
{
std::string Module(const std::string& Name)
{
    return QUEXLEY_BINARY_DIR "/lib/quexley/" + Name + ".so";
}

/// Everything that a class is registered with, and its persisted properties with their types and defaults.
std::string Describe(const TQXPersistent& Object)
{
    static constexpr const char* Types[] = {"string", "Boolean", "integer", "enumeration", "set", "list"};
    std::ostringstream Text;
    for (const TQXProperty& Property : Object.Properties())
        if (Property.IsPersisted())
        {
            const std::string Default = ValueText(Property.Read());
            Text << "    " << Property.Name << " : " << Types[static_cast<std::size_t>(Property.Type)]
                 << (Default.empty() ? "" : " = ") << Default << '\n';
        }
    return Text.str();
}

std::string DescribePackage(TTestHost& Host)
{
    std::ostringstream Text;
    for (const TQXOptionsRegistration& Options : Host.Runtime.OptionsServices().Options())
        Text << "options " << Options.OptionsClass.ClassName << "\n  " << Options.OptionsClass.Name << " | "
             << Options.OptionsClass.Category << " | " << Options.OptionsClass.OptionKey << " | " << Options.ImageName
             << '\n'
             << Describe(*Options.OptionsClass.Create());
    for (const TQXActionRegistration& Action : Host.Runtime.ActionServices().Actions())
    {
        const TQXActionClass& Class = Action.ActionClass;
        Text << "action " << Class.ClassName << "\n  " << Action.DisplayName << " | " << Action.Category << " | "
             << Action.ImageName << " | " << Class.HelpTopicID << ' ' << Class.QuickHelpFilename << '\n';
        const auto Object = Class.Create();
        for (const TQXProperty& Property : Object->Properties())
            if (const auto* Editor = Host.Runtime.ActionServices().FindPropertyEditor(Class.ClassName, Property.Name))
            {
                const auto Dialog = Editor->Create();
                Text << "  editor of " << Property.Name << ": " << Editor->ClassName << " | "
                     << Dialog->GetDefaultExtension() << " | " << Dialog->GetFilter() << " | "
                     << Dialog->GetDialogTitle() << '\n';
            }
        for (const auto& Script : Object->Scripts())
            Text << "  script " << Script->Name() << '\n';
        Text << Describe(*Object);
    }
    return Text.str();
}
/// Checks that an image is there in both sizes, whatever the case of its name.
void ExpectImage(const std::string& Name)
{
    for (const auto& [Ending, Width] : {std::pair(".png", 16), std::pair("@2x.png", 32)})
    {
        const std::string File = Files::Find(QUEXLEY_BINARY_DIR "/share/quexley/images/" + Name + Ending);
        ASSERT_FALSE(File.empty()) << Name << Ending;
        const std::string Bytes = Files::Read(File);
        ASSERT_GT(Bytes.size(), 24U) << File;
        EXPECT_EQ(Bytes.substr(0, 4), "\x89PNG") << File;
        EXPECT_EQ(Bytes[19], Width) << File;
        EXPECT_EQ(Bytes[23], Width) << File;
    }
}
} // namespace

TEST(Registration, EveryImageIsThere)
{
    TPackageHost Host;
    for (const TQXActionRegistration& Action : Host.Runtime.ActionServices().Actions())
        ExpectImage(Action.ImageName);
    for (const TQXOptionsRegistration& Options : Host.Runtime.OptionsServices().Options())
        ExpectImage(Options.ImageName);
}

TEST(Registration, IsAsTheFilesTell)
{
    for (const std::string Package : {"package", "basics"})
    {
        TPackageHost Host;
        if (Package == "package")
            Host.Runtime.SetPackageSource([] { QXRegister(true); });
        else
            Host.Runtime.SetPackageSource([] { LoadNamedPackages({Module("QX40Basics")}, true); });
        std::ifstream File(QUEXLEY_SOURCE_DIR "/tests/" + Package + "/registered.txt");
        const std::string Actual = DescribePackage(Host);
        if (std::string Expected(std::istreambuf_iterator<char>(File), {}); Actual != Expected)
        {
            const std::string Now = QUEXLEY_BINARY_DIR "/registered-" + Package + ".txt";
            std::ofstream(Now) << Actual;
            EXPECT_EQ(Expected, Actual) << "what is registered now stands in " << Now;
        }
    }
}

TEST(Registration, EditorsComeAtDesignTimeOnly)
{
    TPackageHost Host;
    for (const TQXActionRegistration& Action : Host.Runtime.ActionServices().Actions())
        EXPECT_EQ(Host.Runtime.ActionServices().FindPropertyEditor(Action.ActionClass.ClassName, "ProjectFile"),
                  nullptr);
}

TEST(Registration, NamesAreUniqueAndPropertiesKeepWhatTheyAreGiven)
{
    TPackageHost Host;
    std::set<std::string> Names;
    for (const TQXActionRegistration& Registration : Host.Runtime.ActionServices().Actions())
    {
        EXPECT_TRUE(Names.insert(Registration.DisplayName).second) << Registration.DisplayName;
        EXPECT_TRUE(Names.insert(Registration.ActionClass.ClassName).second) << Registration.ActionClass.ClassName;
        const auto Action = Registration.ActionClass.Create();
        for (const TQXProperty& Property : Action->Properties())
        {
            if (!Property.IsPersisted())
                continue;
            TQXPropertyValue Value = Property.Read();
            if (Property.Type == TQXPropertyType::Boolean)
                Value = !std::get<bool>(Value);
            else if (Property.Type == TQXPropertyType::Integer)
                Value = 4711;
            else if (Property.Type == TQXPropertyType::Enumeration)
                Value = std::string(Property.Elements.back());
            else if (Property.Type == TQXPropertyType::Set)
                Value = std::vector<std::string>{std::string(Property.Elements.back())};
            else if (Property.Type == TQXPropertyType::StringList)
                Value = std::vector<std::string>{"a=b", ""};
            else
                Value = "another text";
            Property.Write(Value);
            EXPECT_EQ(Property.Read(), Value) << Registration.ActionClass.ClassName << '.' << Property.Name;
        }
    }
}

TEST(Registration, APackageThatIsThereInPartIsAnError)
{
    TTestHost Host;
    Host.Runtime.SetPackageSource([] {
        QXActionServices().RegisterAction("Another", "Other", QXActionClass<TGACListAction>("TGACListAction"), "");
        QXRegister(false);
    });
    for (int Time = 0; Time < 2; ++Time)
        EXPECT_THAT([&] { static_cast<void>(Host.Runtime.ActionServices().FindAction("TGACInstallAction")); },
                    testing::ThrowsMessage<EHostFileError>(
                        "QX40DotNetFrameWork: The action class TGACListAction is registered twice"));
}

class Package : public testing::TestWithParam<const char*>
{
};

TEST_P(Package, ExportsItsEntryAndNothingElse)
{
    if (!std::filesystem::exists(Module(GetParam())))
        GTEST_SKIP() << GetParam() << " is not built";
    const std::string Command = "nm -D --defined-only --format=posix '" + Module(GetParam()) + "' 2>/dev/null";
    std::FILE* Pipe = popen(Command.c_str(), "r");
    ASSERT_NE(Pipe, nullptr);
    std::string Symbols;
    char Buffer[4096];
    while (std::fgets(Buffer, sizeof Buffer, Pipe))
        Symbols += Buffer;
    if (pclose(Pipe) != 0)
        GTEST_SKIP() << "nm is not installed";
    const auto Found = Lines(Symbols);
    ASSERT_EQ(Found.size(), 1U) << Symbols;
    EXPECT_TRUE(Found[0].starts_with("QXRegister T ")) << Symbols;
}

INSTANTIATE_TEST_SUITE_P(All, Package, testing::Values("QX40DotNetFrameWork", "QX40Basics"));

TEST(Packages, OneThatFailsLeavesNothing)
{
    TTestHost Host;
    Host.Runtime.SetPackageSource([&] {
        const auto RegisterTwice = [] {
            for (int Time = 0; Time < 2; ++Time)
                QXActionServices().RegisterAction("List", "Other", QXActionClass<TGACListAction>("TGACListAction"), "");
        };
        EXPECT_EQ(Host.Runtime.AddPackage(RegisterTwice), "The action class TGACListAction is registered twice");
        EXPECT_EQ(Host.Runtime.AddPackage([] { QXActionServices().RegistrationFailed("a reason"); }), "a reason");
        EXPECT_EQ(Host.Runtime.AddPackage([] { QXRegister(false); }), "");
    });
    EXPECT_NE(Host.Runtime.ActionServices().FindAction("TGACListAction"), nullptr);
}
