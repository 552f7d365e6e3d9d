#include "platform/Registry.h"

#include "tests/DataFile.h"

#include "gtest/gtest.h"

#include <chrono>
#include <map>

using namespace std::string_literals;

namespace
{
const std::string Version5 = "Windows Registry Editor Version 5.00\r\n\r\n";

std::string Utf16(std::string_view Ascii)
{
    std::string Result = "\xFF\xFE";
    for (const char Character : Ascii)
        (Result += Character) += '\0';
    return Result;
}

/// The value of a key, "(none)" without one, "(no key)" without the key.
std::string Value(const IRegistry& Registry, TRegistryRoot Root, std::string_view Path, std::string_view Name)
{
    const auto Key = Registry.OpenKey(Root, Path);
    return Key ? Key->ReadString(Name).value_or("(none)") : "(no key)";
}

std::string MachineValue(const std::string& Export, std::string_view Name)
{
    return Value(*ParseRegistryExport(Export), TRegistryRoot::LocalMachine, "Software\\Acme", Name);
}
} // namespace

TEST(Registry, ReadsEveryFormOfValue)
{
    const std::string Body = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Acme] ; comment ]\r\n"
                             "@=\"default\"\r\n"
                             "; \"Commented\"=\"x\"\r\n"
                             "\"Path\" = \"C:\\\\a \\\"b\\\"\\\\\" ; comment\r\n"
                             "\"Quote\\\"d\\\\\"=\"\"\r\n"
                             "\"Lines\"=\"one\r\ntwo\"\r\n"
                             "\"Number\"=dword:0000002a\r\n"
                             "\"Binary\"=hex:\r\n"
                             "\"Multi\"=hex(7):61,00,\\\r\n  00,00\r\n"
                             "\"Gone\"=\"x\"\r\n\"gone\"=-\r\n"
                             "\"Changed\"=\"x\"\r\n\"CHANGED\"=dword:1\r\n";
    const std::string Wide = Version5 + Body +
                             "\"Expand\"=hex(2):25,00,41,00,\\\r\n  25,00,ac,20,00,00\r\n"
                             "\"Plain\"=hex(1):7a,00\r\n";
    const std::string Narrow =
        "REGEDIT4\n\n" + Body + "\"Expand\"=hex(2):25,41,\\\r\n  25,80,00\r\n\"Plain\"=hex(1):7a\r\n";
    const struct
    {
        const char *Name, *Value;
    } Cases[] = {
        {"", "default"},         {"PATH", "C:\\a \"b\"\\"}, {"quote\"d\\", ""},
        {"Lines", "one\r\ntwo"}, {"Number", "(none)"},      {"Binary", "(none)"},
        {"Multi", "(none)"},     {"Gone", "(none)"},        {"Expand", "%A%€"},
        {"Plain", "z"},          {"Changed", "(none)"},     {"Commented", "(none)"},
    };
    for (const std::string& Export : {Wide, "\xEF\xBB\xBF" + Wide, Utf16(Wide), Narrow})
        for (const auto& Case : Cases)
            EXPECT_EQ(MachineValue(Export, Case.Name), Case.Value) << Case.Name << " of " << Export.substr(0, 20);
    EXPECT_EQ(MachineValue("REGEDIT4\n[HKLM\\Software\\Acme]\n\"a\"=\"gr\xFCn\"", "A"), "grün");
}

TEST(Registry, KeysKeepTheirOrderAndIgnoreCase)
{
    const auto Registry = ParseRegistryExport(Version5 + "[HKEY_CURRENT_USER\\Software\\Zeta\\One]\r\n"
                                                         "[HKCU\\SOFTWARE\\alpha]\r\n\"v\"=\"1\"\r\n"
                                                         "[hkey_current_user\\software\\Öl]\r\n@=\"oil\"\r\n"
                                                         "[HKCU\\Software\\Drop\\Sub]\r\n"
                                                         "[-HKCU\\software\\DROP]\r\n\"lost\"=\"x\"\r\n"
                                                         "[-HKCU\\Software\\Never\\Was]\r\n"
                                                         "[HKCU\\Software\\ALPHA]\r\n\"w\"=\"2\"\r\n"
                                                         "[HKCU\\Software\\a]b]\r\n");
    const auto Key = Registry->OpenKey(TRegistryRoot::CurrentUser, "\\SoftWare");
    ASSERT_NE(Key, nullptr);
    EXPECT_EQ(Key->SubKeyNames(), (std::vector<std::string>{"Zeta", "alpha", "Öl", "a]b"}));
    EXPECT_EQ(Value(*Registry, TRegistryRoot::CurrentUser, "software\\Alpha", "V"), "1");
    EXPECT_EQ(Value(*Registry, TRegistryRoot::CurrentUser, "software\\Alpha\\", "w"), "2");
    EXPECT_EQ(Value(*Registry, TRegistryRoot::CurrentUser, "SOFTWARE\\öL", ""), "oil");
    EXPECT_EQ(Registry->OpenKey(TRegistryRoot::CurrentUser, "Software\\Drop"), nullptr);
    EXPECT_EQ(Registry->OpenKey(TRegistryRoot::LocalMachine, "Software"), nullptr);
    EXPECT_EQ(EmptyRegistry()->OpenKey(TRegistryRoot::ClassesRoot, "CLSID"), nullptr);
}

TEST(Registry, ClassesRootIsPartOfLocalMachine)
{
    const auto Registry = ParseRegistryExport(Version5 + "[HKEY_CLASSES_ROOT\\TypeLib\\{A}]\r\n@=\"root\"\r\n"
                                                         "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\TypeLib\\{B}]\r\n"
                                                         "@=\"machine\"\r\n[-HKCR\\TypeLib\\{C}]\r\n");
    for (const auto& [Root, Path] : {std::pair(TRegistryRoot::ClassesRoot, "TypeLib\\"s),
                                     std::pair(TRegistryRoot::LocalMachine, "Software\\CLASSES\\TypeLib\\"s)})
    {
        EXPECT_EQ(Value(*Registry, Root, Path + "{a}", ""), "root");
        EXPECT_EQ(Value(*Registry, Root, Path + "{b}", ""), "machine");
    }
}

TEST(Registry, OfA64BitSystemTheBranchOf32BitProgramsCountsFirst)
{
    const auto Registry =
        ParseRegistryExport(Version5 + "[HKLM\\Software\\Tool]\r\n@=\"64\"\r\n\"only\"=\"64\"\r\n"
                                       "[HKLM\\Software\\Tool\\b]\r\n[HKLM\\Software\\Toolbox]\r\n"
                                       "[HKLM\\SOFTWARE\\WOW6432Node\\Tool]\r\n@=\"32\"\r\n"
                                       "[HKLM\\SOFTWARE\\WOW6432Node\\Tool\\a]\r\n"
                                       "[HKCR\\CLSID\\{1}]\r\n@=\"64\"\r\n"
                                       "[HKCR\\Wow6432Node\\CLSID\\{1}]\r\n@=\"32\"\r\n"
                                       "[HKLM\\Software\\Wow6432Node\\Classes\\CLSID\\{2}]\r\n@=\"32\"\r\n");
    const struct
    {
        TRegistryRoot Root;
        const char *Path, *Name, *Expected;
    } Cases[] = {{TRegistryRoot::LocalMachine, "software\\tool", "", "32"},
                 {TRegistryRoot::LocalMachine, "Software\\Tool", "only", "64"},
                 {TRegistryRoot::LocalMachine, "Software\\Toolbox", "", "(none)"},
                 {TRegistryRoot::LocalMachine, "Software\\Wow6432Node\\Tool", "", "32"},
                 {TRegistryRoot::ClassesRoot, "CLSID\\{1}", "", "32"},
                 {TRegistryRoot::ClassesRoot, "CLSID\\{2}", "", "32"}};
    for (const auto& Case : Cases)
        EXPECT_EQ(Value(*Registry, Case.Root, Case.Path, Case.Name), Case.Expected) << Case.Path << ' ' << Case.Name;
    EXPECT_EQ(Registry->OpenKey(TRegistryRoot::LocalMachine, "Software\\Tool")->SubKeyNames(),
              (std::vector<std::string>{"a", "b"}));
}

TEST(Registry, ExpandableStringsTakeTheVariablesOfWindows)
{
    const auto Variables = [](std::string_view Name) {
        return Name == "A" ? std::optional<std::string>("%B%") : std::nullopt;
    };
    // %A%\\%x%A%, %A
    const auto Registry = ParseRegistryExport("REGEDIT4\n[HKLM\\K]\n\"e\"=hex(2):25,41,25,5c,25,78,25,41,25,2c,25,41\n"
                                              "\"s\"=\"%A%\"\n",
                                              Variables);
    EXPECT_EQ(Value(*Registry, TRegistryRoot::LocalMachine, "K", "e"), "%B%\\%x%B%,%A");
    EXPECT_EQ(Value(*Registry, TRegistryRoot::LocalMachine, "K", "s"), "%A%");
}

TEST(Registry, MalformedExportsNameLineAndReason)
{
    const std::map<std::string, std::string> Fronts = {
        {"", ""}, {"heading", Version5}, {"key", Version5 + "[HKLM\\Software\\Acme]\n"}};
    CheckTable(
        "exports", "malformed registry export",
        [&](const TColumns& Row) {
            try
            {
                (void)ParseRegistryExport(Fronts.at(Row[0]) + Row[1]);
                return TColumns{"accepted"};
            }
            catch (const ERegistryError& Error)
            {
                const std::string Reason = Error.what();
                return TColumns{std::to_string(Error.Line),
                                Reason.find(Row.back()) != Reason.npos ? Row.back() : Reason};
            }
        },
        2);
    EXPECT_THROW((void)ParseRegistryExport(Version5 + "[HKLM" + std::string(600, '\\') + "]"), ERegistryError);
}

TEST(Registry, WorkGrowsWithTheExport)
{
    std::string Export = Version5;
    for (int Index = 0; Index < 100000; ++Index)
        Export += "[HKCR\\CLSID\\{" + std::to_string(Index) + "}]\r\n\"v" + std::to_string(Index) + "\"=\"x\"\r\n";
    for (int Index = 0; Index < 100000; Index += 2)
        Export += "[-HKCR\\CLSID\\{" + std::to_string(Index) + "}]\r\n";
    const auto Start = std::chrono::steady_clock::now();
    const auto Registry = ParseRegistryExport(Export);
    EXPECT_EQ(Registry->OpenKey(TRegistryRoot::ClassesRoot, "clsid")->SubKeyNames().size(), 50000U);
    // Quadratic work would take minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(10));
}
