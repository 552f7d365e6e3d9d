#include "platform/FileRewrite.h"

#include "platform/Paths.h"
#include "platform/ReadAhead.h"
#include "tests/TempFolder.h"

#include "gtest/gtest.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <pthread.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace
{
/// Works in a new folder, which is the current one meanwhile.
class FilesTest : public testing::Test
{
protected:
    void Make(const std::string& Name, std::string_view Bytes = "x") const { Folder.Write(Name, Bytes); }
    [[nodiscard]] static unsigned Mode(const std::string& Path)
    {
        return static_cast<unsigned>(fs::status(Path).permissions());
    }
    /// What is in the folder, so that nothing is left over unseen.
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> Result;
        for (const fs::directory_entry& Entry : fs::directory_iterator(Folder.Path()))
            if (std::error_code Error; Entry.is_regular_file(Error))
                Result.push_back(Entry.path().filename().string());
        std::sort(Result.begin(), Result.end());
        return Result;
    }

    static constexpr auto AllFiles = Files::TEntryKind::Files;
    TWorkFolder Folder;
};

/// Lets no file grow beyond a size, as on a disk that is full.
class TFullDisk
{
public:
    explicit TFullDisk(rlim_t Size) : OldHandler(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &Before);
        const rlimit Limit{Size, Before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &Limit);
    }
    ~TFullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &Before);
        ::signal(SIGXFSZ, OldHandler);
    }
    TFullDisk(const TFullDisk&) = delete;
    TFullDisk& operator=(const TFullDisk&) = delete;

private:
    rlimit Before = {};
    void (*OldHandler)(int);
};

/// Changes a variable of the environment; none: takes it away.
class TVariable
{
public:
    TVariable(std::string AName, const char* Value) : Name(std::move(AName))
    {
        if (std::string Old; Environment::Get(Name, Old))
            Before = Old;
        Set(Value);
    }
    ~TVariable() { Set(Before ? Before->c_str() : nullptr); }
    TVariable(const TVariable&) = delete;
    TVariable& operator=(const TVariable&) = delete;

private:
    void Set(const char* Value) const
    {
        if (Value != nullptr)
            ::setenv(Name.c_str(), Value, 1);
        else
            ::unsetenv(Name.c_str());
    }

    std::string Name;
    std::optional<std::string> Before;
};
} // namespace

TEST_F(FilesTest, FindsIgnoringCaseTheExactSpellingFirst)
{
    for (const char* Name : {"Src/Forms/Main.cs", "src/Other.cs", "Doppelt.cs", "DOPPELT.cs", "Größe/ÄÖ.cs", "\xFF.cs"})
        Make(Name);
    fs::create_symlink("nowhere", Folder / "AAA");
    Make("aaa");
    const struct
    {
        std::string Path, Found;
    } Cases[] = {
        {"Src\\Forms\\Main.cs", "Src/Forms/Main.cs"},
        {"SRC\\forms/./MAIN.CS", "Src/Forms/Main.cs"},
        {"x\\..\\src\\FORMS\\", "Src/Forms/"},
        {"src/Forms/Main.cs", "Src/Forms/Main.cs"}, // one folder of a Windows project is two here
        {"Src/other.cs", "src/Other.cs"},
        {"SRC", "Src"},
        {"Doppelt.cs", "Doppelt.cs"},
        {"doppelt.CS", "DOPPELT.cs"},
        {"gRÖSSE/äö.cs", ""},
        {"gRÖßE/äö.CS", "Größe/ÄÖ.cs"},
        {"\xFF.CS", "\xFF.cs"},
        {"AAA", "aaa"}, // the link leads nowhere
        {"Doppelt.cs/", ""},
        {"Doppelt.cs/x", ""},
        {"src\\none.cs", ""},
        {"", ""},
        {"Doppelt.cs\0"s, ""},
        {std::string(100000, 'a'), ""},
        {"a/" + std::string(100000, '/') + std::string(5000, 'b'), ""},
        {".", "."},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Files::Find(Case.Path), Case.Found) << Case.Path;
        const std::string Absolute = Files::Find(Folder.Path() + "/" + Case.Path);
        EXPECT_EQ(Absolute, Case.Path.empty() ? Folder.Path() + "/"
                                              : Paths::Expand(Case.Found, Case.Found.empty() ? "" : Folder.Path()));
    }
    EXPECT_TRUE(Files::FileExists("SRC\\OTHER.CS"));
    EXPECT_FALSE(Files::FileExists("SRC"));
    EXPECT_TRUE(Files::FolderExists("SRC"));
    EXPECT_FALSE(Files::FolderExists("doppelt.cs"));
}

TEST_F(FilesTest, SpellingCompletesWhatIsThere)
{
    Make("Obj/Debug/a.dll");
    EXPECT_EQ(Files::Spelling("OBJ\\debug\\New\\X.cs"), "Obj/Debug/New/X.cs");
    EXPECT_EQ(Files::Spelling("obj\\DEBUG\\A.DLL"), "Obj/Debug/a.dll");
    EXPECT_EQ(Files::Spelling("none\\..\\Other\\"), "Other/");
    EXPECT_EQ(Files::Spelling("../NoSuchNeighbour/x"), "../NoSuchNeighbour/x");
    EXPECT_EQ(Files::Spelling("/No/such"), "/No/such");
    Files::Write("OBJ\\new.txt", "1");
    EXPECT_TRUE(fs::exists(Folder / "Obj/new.txt"));
}

TEST_F(FilesTest, NeighboursOfTheCurrentFolderAreNotMistakenForIt)
{
    Make("Here/a.cs");
    Make("here/b.cs");
    Files::SetCurrentFolder(Folder / "Here");
    EXPECT_EQ(Files::Find(Folder / "Here/b.cs"), "");
    EXPECT_EQ(Files::Find("../HERE/b.cs"), "../here/b.cs");
}

TEST_F(FilesTest, ChangesOfAFolderAreSeen)
{
    for (int Round = 0; Round < 20; ++Round)
    {
        const std::string Name = "New" + std::to_string(Round);
        EXPECT_EQ(Files::Find("NEW" + std::to_string(Round)), "");
        if (Round == 10)
            std::this_thread::sleep_for(std::chrono::milliseconds(30)); // the listing is trusted from here on
        EXPECT_EQ(Files::Find("NEW" + std::to_string(Round)), "");
        Make(Name);
        EXPECT_EQ(Files::Find("NEW" + std::to_string(Round)), Name);
        EXPECT_TRUE(Files::Delete(Name));
    }
}

TEST_F(FilesTest, ManyNamesInOneFolderStayLinear)
{
    constexpr int Count = 800;
    for (int Index = 0; Index < Count; ++Index)
        Make("Class" + std::to_string(Index), "");
    const auto Start = std::chrono::steady_clock::now();
    for (int Index = 0; Index < 5 * Count; ++Index)
    {
        ASSERT_NE(Files::Find("CLASS" + std::to_string(Index % Count)), "");
        ASSERT_EQ(Files::Find("none" + std::to_string(Index)), "");
    }
    // Reading the folder for each would take far longer.
    EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(5));
}

TEST_F(FilesTest, ReadsAndWritesBytes)
{
    const std::string Bytes = "a\0\r\n\xFF"s + std::string(100000, 'z');
    Make("A.bin", Bytes);
    EXPECT_EQ(Files::Read("a.BIN"), Bytes);
    Files::Write("a.bin", "short");
    EXPECT_EQ(Files::Read("A.bin"), "short");
    EXPECT_EQ(Files::Read("/dev/null"), "");
    EXPECT_FALSE(Files::Read("/proc/self/status").empty()); // its size is 0
    fs::create_directory(Folder / "Sub");
    const struct
    {
        std::string Path, Message;
    } Cases[] = {
        {"None.txt", "None.txt: No such file or directory"},
        {"SUB", "Sub: Is a directory"},
        {"/dev/zero", "/dev/zero: File too large"},
    };
    for (const auto& Case : Cases)
        try
        {
            (void)Files::Read(Case.Path);
            ADD_FAILURE() << Case.Path;
        }
        catch (const EFileError& Error)
        {
            EXPECT_EQ(Error.what(), Case.Message);
        }
    for (const char* Path : {"Sub", "None/x.txt", "/dev/full", ""})
        EXPECT_THROW(Files::Write(Path, "x"), EFileError) << Path;
}

TEST_F(FilesTest, ReplaceContentKeepsModeAndLinks)
{
    Make("Real.cs", "old");
    fs::permissions(Folder / "Real.cs", fs::perms{0640});
    fs::create_directory(Folder / "Sub");
    fs::create_symlink("../Real.cs", Folder / "Sub/Link.cs");
    fs::create_hard_link(Folder / "Real.cs", Folder / "Hard.cs");
    Files::ReplaceContent("sub\\link.CS", "new");
    EXPECT_TRUE(fs::is_symlink(Folder / "Sub/Link.cs"));
    EXPECT_EQ(Files::Read("Real.cs"), "new");
    EXPECT_EQ(Files::Read("Hard.cs"), "old");
    EXPECT_EQ(Mode("Real.cs"), 0640U);
    fs::create_symlink("Made.cs", Folder / "Dangling.cs");
    Files::ReplaceContent("Dangling.cs", "made");
    EXPECT_EQ(Files::Read("Made.cs"), "made");
    EXPECT_TRUE(fs::is_symlink(Folder / "Dangling.cs"));
    Files::ReplaceContent("Fresh.cs", "fresh");
    EXPECT_EQ(Mode("Fresh.cs"), Mode("Made.cs"));
    EXPECT_EQ(Names(), (std::vector<std::string>{"Dangling.cs", "Fresh.cs", "Hard.cs", "Made.cs", "Real.cs"}));
}

TEST_F(FilesTest, FailedReplacementLeavesEverythingAsItWas)
{
    Make("Protected.cs", "old");
    fs::permissions(Folder / "Protected.cs", fs::perms{0444});
    fs::create_directory(Folder / "Sub");
    fs::create_symlink("Loop", Folder / "Loop");
    EXPECT_TRUE(Files::IsReadOnly("PROTECTED.cs"));
    for (const char* Path : {"Protected.cs", "Sub", "None/x.cs", "Loop", "/dev/null", ""})
        EXPECT_THROW(Files::ReplaceContent(Path, "new"), EFileError) << Path;
    EXPECT_EQ(Files::Read("Protected.cs"), "old");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Protected.cs"}));
    EXPECT_FALSE(Files::IsReadOnly("Sub"));
    EXPECT_FALSE(Files::IsReadOnly("None"));
}

TEST_F(FilesTest, ARewriteKeepsWhatTheFileIsAndNoticesOthers)
{
    Make("Real.cs", "old");
    // An access list, in the system's form: owner and user 7 read and write, group and mask as well, others nothing.
    constexpr char List[] = "\2\0\0\0\1\0\6\0\377\377\377\377\2\0\6\0\7\0\0\0\4\0\4\0\377\377\377\377"
                            "\20\0\6\0\377\377\377\377 \0\0\0\377\377\377\377";
    constexpr const char* ListName = "system.posix_acl_access";
    const bool HasList = ::setxattr("Real.cs", ListName, List, sizeof List - 1, 0) == 0;
    const bool HasOwner = ::chown("Real.cs", 1234, 4321) == 0;
    fs::create_symlink("Real.cs", Folder / "Link.cs");
    const std::string_view Pieces[] = {"ne", "", "w"};
    TFileRewrite("link.CS").Replace(Pieces);
    EXPECT_EQ(Files::Read("Real.cs"), "new");
    EXPECT_TRUE(fs::is_symlink(Folder / "Link.cs"));
    struct stat Status = {};
    ASSERT_EQ(::stat("Real.cs", &Status), 0);
    EXPECT_TRUE(!HasOwner || (Status.st_uid == 1234 && Status.st_gid == 4321));
    char Kept[100];
    EXPECT_TRUE(!HasList || ::getxattr("Real.cs", ListName, Kept, sizeof Kept) == sizeof List - 1);

    // A list that the folder gives to new files is not to open one that had none.
    Make("Sub/Closed.cs", "old");
    fs::permissions(Folder / "Sub/Closed.cs", fs::perms{0640});
    const bool HasDefault = ::setxattr("Sub", "system.posix_acl_default", List, sizeof List - 1, 0) == 0;
    TFileRewrite("Sub/Closed.cs").Replace(Pieces);
    EXPECT_TRUE(!HasDefault || ::getxattr("Sub/Closed.cs", ListName, Kept, sizeof Kept) < 0);
    EXPECT_EQ(Mode("Sub/Closed.cs"), 0640U);

    TFileRewrite Rewrite("Real.cs");
    Make("Real.cs", "by another");
    EXPECT_THROW(Rewrite.Replace(Pieces), EFileError);
    EXPECT_EQ(Files::Read("Real.cs"), "by another");
    ::mkfifo("Pipe.cs", 0644);
    EXPECT_THROW(TFileRewrite("Pipe.cs"), EFileError);
    EXPECT_EQ(TFileRewrite("Real.cs/x").State(), TFileRewrite::TState::Missing);
    EXPECT_EQ(TFileRewrite(".").State(), TFileRewrite::TState::Missing);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Link.cs", "Real.cs"})); // a pipe is no file
}

TEST_F(FilesTest, FilesOfABatchTakeTheirPlacesTogether)
{
    const std::string_view Pieces[] = {"new"};
    for (const char* Name : {"a.cs", "b.cs", "c.cs"})
        Make(Name, "old");
    {
        TRewriteBatch Batch;
        TFileRewrite("a.cs", nullptr, &Batch).Backup("a.bak");
        TFileRewrite("a.cs", nullptr, &Batch).Replace(Pieces);
        EXPECT_EQ(Names(), (std::vector<std::string>{"a.cs", "b.cs", "c.cs"}));
        EXPECT_EQ(TFileRewrite("a.bak", nullptr, &Batch).Bytes(), "old"); // is there now, and so is what waited with it
        EXPECT_EQ(Files::Read("a.cs"), "new");
        for (const char* Name : {"b.cs", "c.cs"})
            TFileRewrite(Name, nullptr, &Batch).Replace(Pieces);
        Make("b.cs", "by another");
        EXPECT_THROW(Batch.Finish(), EFileError);
        TFileRewrite("a.cs", nullptr, &Batch).Replace(std::array<std::string_view, 1>{"dropped"});
    }
    EXPECT_EQ(Files::Read("b.cs"), "by another");
    EXPECT_EQ(Files::Read("a.cs") + Files::Read("c.cs"), "newnew");
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.bak", "a.cs", "b.cs", "c.cs"}));
}

/// As where several masks find it. It was read ahead before its first rewriting took its place, and that is not known
/// as one of the last. In memory it all happens within one beat of the clock that files are stamped by.
TEST_F(FilesTest, AFileThatIsListedTwiceIsRewrittenTwice)
{
    const TTempFolder Memory(fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path());
    std::vector<std::string> Listed;
    for (int Number = 0; Number < 128; ++Number)
        Listed.push_back(Memory.Write("f" + std::to_string(Number), "x"));
    for (const char* Name : {"missing", "f10", "f11", "missing", "f12", "f13"})
        Listed.push_back(Memory / Name);
    for (std::size_t Round = 1; Round <= 20; ++Round)
    {
        TReadAhead Ahead(Listed);
        TRewriteBatch Batch;
        for (const std::string& Name : Listed)
            if (TFileRewrite File(Name, &Ahead, &Batch); File.State() == TFileRewrite::TState::Loaded)
            {
                File.Backup(Name + ".bak");
                File.Replace(std::array<std::string_view, 2>{File.Bytes(), "x"});
            }
        Batch.Finish();
        EXPECT_EQ(Memory.Read("f9").size(), 1 + Round);
        EXPECT_EQ(Memory.Read("f10").size() + Memory.Read("f13").size(), 2 + 4 * Round);
    }
}

TEST_F(FilesTest, WhatADeadProcessLeftIsPassedOverAndRemoved)
{
    for (const char* Name : {".quexley-1-1.tmp", ".quexley-2-2.tmp", ".quexley-.tmp.cs", ".quexley-mine.tmp"})
        Make(Name);
    fs::create_symlink(".quexley-2-2.tmp", Folder / ".quexley-3-3.tmp");
    const std::vector<std::string> Others = {".quexley-.tmp.cs", ".quexley-mine.tmp"};
    EXPECT_EQ(Files::Enumerate("", "*", AllFiles), Others);
    const int Living = ::open(".quexley-2-2.tmp", O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(Living, LOCK_EX), 0);
    Files::RemoveLeftovers("");
    EXPECT_FALSE(fs::exists(".quexley-1-1.tmp"));
    EXPECT_TRUE(fs::is_symlink(".quexley-3-3.tmp") && fs::exists(".quexley-3-3.tmp"));
    ::close(Living);
    Files::RemoveLeftovers("");
    EXPECT_FALSE(fs::exists(".quexley-2-2.tmp"));
    EXPECT_EQ(Names(), Others);
}

TEST_F(FilesTest, FilesAreReadAlsoWhereNoThreadCanBeStarted)
{
    pthread_attr_t Normal;
    pthread_attr_t Huge;
    ::pthread_getattr_default_np(&Normal);
    ::pthread_getattr_default_np(&Huge);
    ::pthread_attr_setstacksize(&Huge, std::size_t{1} << 46U);
    ::pthread_setattr_default_np(&Huge);
    const std::vector<std::string> Paths(16, "a.cs");
    Make("a.cs", "text");
    {
        TReadAhead Ahead(Paths);
        sigset_t Blocked;
        ::pthread_sigmask(SIG_SETMASK, nullptr, &Blocked);
        EXPECT_EQ(::sigismember(&Blocked, SIGTERM), 0);
        for (const std::string& Path : Paths)
            EXPECT_EQ(TFileRewrite(Path, &Ahead).Bytes(), "text");
    }
    ::pthread_setattr_default_np(&Normal);
}

TEST_F(FilesTest, ABackupTakesThePlaceOfAnOldOneUnlessThatIsProtected)
{
    Make("a.cs", "new");
    Make("b.bak/x");
    Make("c.bak", "old");
    fs::permissions(Folder / "c.bak", fs::perms{0444});
    Make("target", "old");
    fs::create_symlink("target", Folder / "d.bak");
    for (const char* Name : {"b.bak", "c.bak", "d.bak", "e.bak"})
        TFileRewrite("a.cs").Backup(Name);
    EXPECT_EQ(Files::Read("c.bak"), "old");
    EXPECT_EQ(Files::Read("target"), "old");
    EXPECT_EQ(Files::Read("d.bak") + Files::Read("e.bak"), "newnew");
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.cs", "c.bak", "d.bak", "e.bak", "target"}));
}

TEST_F(FilesTest, AFullDiskLeavesNoHalfFile)
{
    Make("Source.cs", std::string(100000, 's'));
    Make("Old.cs", "old");
    const TFullDisk Full(50000);
    const std::string Bytes(100000, 'n');
    EXPECT_THROW(Files::ReplaceContent("Old.cs", Bytes), EFileError);
    EXPECT_THROW(TFileRewrite("Old.cs").Replace(std::array<std::string_view, 1>{Bytes}), EFileError);
    EXPECT_THROW(TFileRewrite("Source.cs").Backup("Old.cs"), EFileError);
    EXPECT_FALSE(Files::Copy("Source.cs", "Old.cs"));
    EXPECT_EQ(Files::Read("Old.cs"), "old");
    EXPECT_THROW(Files::Write("qxresp.rsp", Bytes), EFileError);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Old.cs", "Source.cs"}));
}

TEST_F(FilesTest, CopiesWholeFilesWithTheirMode)
{
    Make("Tool.exe", std::string(1000000, 't'));
    fs::permissions(Folder / "Tool.exe", fs::perms{0555});
    Make("Old.exe", "old");
    EXPECT_TRUE(Files::Copy("tool.EXE", "OLD.exe"));
    EXPECT_TRUE(Files::Copy("Tool.exe", "Old.exe")); // over one that is write-protected now
    EXPECT_EQ(Files::Read("Old.exe"), Files::Read("Tool.exe"));
    EXPECT_EQ(Mode("Old.exe"), 0555U);
    EXPECT_TRUE(Files::Copy("Tool.exe", "Tool.exe"));
    fs::create_directory(Folder / "Sub");
    for (const auto& [From, To] : {std::pair("None", "Old.exe"),
                                   {"Sub", "Old.exe"},
                                   {"Tool.exe", "Sub"},
                                   {"Tool.exe", "None/x"},
                                   {"/dev/zero/x", "x"}})
        EXPECT_FALSE(Files::Copy(From, To)) << From << " to " << To;
    EXPECT_EQ(Files::Read("Old.exe").size(), 1000000U);
    EXPECT_EQ(Names(), (std::vector<std::string>{"Old.exe", "Tool.exe"}));
}

TEST_F(FilesTest, DeletesFilesAndMakesFolders)
{
    Make("a.txt");
    fs::create_symlink("nowhere", Folder / "Dangling");
    EXPECT_TRUE(Files::ForceFolders("obj\\Debug\\"));
    EXPECT_TRUE(Files::ForceFolders("OBJ/debug/x/../Sub"));
    EXPECT_TRUE(fs::is_directory(Folder / "obj/Debug/Sub"));
    EXPECT_FALSE(Files::ForceFolders("A.txt"));
    EXPECT_FALSE(Files::ForceFolders("a.txt/Sub"));
    EXPECT_FALSE(Files::ForceFolders(""));
    for (const char* Path : {"A.TXT", "A.TXT", "None/x", "Dangling"})
        EXPECT_TRUE(Files::Delete(Path)) << Path;
    EXPECT_FALSE(Files::Delete("Obj"));
    EXPECT_TRUE(fs::exists(Folder / "obj") && fs::is_empty(Folder / "obj/Debug/Sub"));
    EXPECT_TRUE(Names().empty());
    EXPECT_THROW(Files::SetCurrentFolder("None"), EFileError);
}

TEST_F(FilesTest, EnumeratesByMaskAndKind)
{
    for (const char* Name : {"b.config", "App.CONFIG", "Makefile", "Sub.config/x", "a.config.bak"})
        Make(Name);
    fs::create_symlink("b.config", Folder / "link.config");
    fs::create_symlink("Sub.config", Folder / "folder.config");
    fs::create_symlink("none", Folder / "dangling.config");
    using TList = std::vector<std::string>;
    EXPECT_EQ(Files::Enumerate(Folder.Path(), "*.config", AllFiles), (TList{"App.CONFIG", "b.config", "link.config"}));
    EXPECT_EQ(Files::Enumerate("", "*.config", Files::TEntryKind::Folders), (TList{"Sub.config", "folder.config"}));
    EXPECT_EQ(Files::Enumerate("SUB.config", "*", AllFiles), (TList{"x"}));
    EXPECT_TRUE(Files::Enumerate("none", "*", AllFiles).empty());
}

TEST(FileMasks, MatchLikeWindows)
{
    const struct
    {
        const char *Mask, *Name;
        bool Matches;
    } Cases[] = {
        {"*.*", "Makefile", true},
        {"*", "", true},
        {"", "", true},
        {"", "a", false},
        {"*.CS", "a.b.cs", true},
        {"*.cs", "a.csx", false},
        {"?.cs", "ä.cs", true},
        {"??.cs", "ä.cs", false},
        {"a?c",
         "a\xFF"
         "c",
         true},
        {"[a-c]x", "BX", true},
        {"[a-c]x", "dx", false},
        {"[!a-c]x", "dx", true},
        {"[!A-C]x", "bx", false},
        {"[xyz-]", "-", true},
        {"[ä-ü]", "Ö", true},
        {"[abc", "[ABC", true},
        {"*[0-9].cs", "a1b2.cs", true},
        {"a*b*c", "aXbYbc", true},
        {"*a", "ab", false},
        {"Ä*", "äx", true},
    };
    for (const auto& Case : Cases)
        EXPECT_EQ(Files::MatchesMask(Case.Name, Case.Mask), Case.Matches) << Case.Mask << " on " << Case.Name;
    std::string Stars;
    for (int Index = 0; Index < 200; ++Index)
        Stars += "*a";
    EXPECT_FALSE(Files::MatchesMask(std::string(10000, 'a') + "b", Stars));
}

TEST(UserFolders, FollowTheBaseFolderRules)
{
    const TVariable Home("HOME", "/home/me");
    {
        const TVariable Configuration("XDG_CONFIG_HOME", "/cfg/");
        const TVariable State("XDG_STATE_HOME", "relative");
        const TVariable Cache("XDG_CACHE_HOME", nullptr);
        EXPECT_EQ(Files::ConfigurationFolder(), "/cfg");
        EXPECT_EQ(Files::StateFolder(), "/home/me/.local/state");
        EXPECT_EQ(Files::CacheFolder(), "/home/me/.cache");
    }
    const TVariable NoHome("HOME", nullptr);
    const TVariable Cache("XDG_CACHE_HOME", nullptr);
    EXPECT_TRUE(Files::CacheFolder().starts_with('/') && Files::CacheFolder().ends_with("/.cache"));
    EXPECT_TRUE(Files::FileExists(Files::ProgramFile()));
}
