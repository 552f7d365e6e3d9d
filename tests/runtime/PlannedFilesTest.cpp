// What a dry run counts as there; the rows stand in tests/tables/files.txt.
#include "tests/DataFile.h"
#include "tests/TempFolder.h"
#include "tests/runtime/SampleActions.h"
#include "tests/runtime/TestHost.h"

#include "host/QXFiles.h"
#include "platform/Text.h"

#include <map>
#include <sstream>

namespace
{
/// What an operation of the files gives, as text; First and Second are what stands behind its name.
std::string Answer(const std::string& Operation, const std::string& First, const std::string& Second)
try
{
    IQXFiles& Files = QXFiles();
    const std::map<std::string, std::function<std::string()>> Operations = {
        {"find", [&] { return Files.Find(First); }},
        {"spelling", [&] { return Files.Spelling(First); }},
        {"file", [&] { return YesOrNo(Files.FileExists(First)); }},
        {"folder", [&] { return YesOrNo(Files.FolderExists(First)); }},
        {"names", [&] { return TStringList(Files.FileNames(First, Second)).DelimitedText(','); }},
        {"read", [&] { return Files.Read(First); }},
        {"write", [&] { return YesOrNo(Files.Write(First, Second)); }},
        {"copy", [&] { return YesOrNo(Files.Copy(First, Second)); }},
        {"delete", [&] { return YesOrNo(Files.Delete(First)); }},
        {"force", [&] { return YesOrNo(Files.ForceFolders(First)); }},
        {"make", [&] { return Files.WillMake(First), std::string(); }},
    };
    return Operations.at(Operation)();
}
catch (const std::runtime_error& Error)
{
    return Error.what();
}
} // namespace

TEST(PlannedFiles, AreThereAndTheDiskStaysAsItIs)
{
    CheckTable("files", "planned files", [](const TColumns& Row) {
        const TWorkFolder Folder;
        std::filesystem::create_symlink(Folder / "Src", Folder / "link");
        const auto Old = std::filesystem::last_write_time(Folder.Write("Src/Old.txt", "old"));
        TTestHost Host;
        Host.Settings.Plan = &Host.Plan;
        TSampleAction Action;
        const auto Connection = Host.Connect(Action);
        std::string Last;
        std::istringstream Steps(Row[0]);
        for (std::string Step; std::getline(Steps, Step, ';');)
        {
            std::istringstream Words(Step);
            std::string Operation, First, Second;
            Words >> Operation >> First >> Second;
            Last = Answer(Operation, First, Second);
        }
        EXPECT_EQ(std::filesystem::last_write_time(Folder / "Src/Old.txt"), Old);
        EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(Folder.Path()), {}), 3);
        TColumns Result = {Last};
        for (const std::string& Message : Host.Log.Messages)
            Result.push_back(Message);
        return Result;
    });
}
