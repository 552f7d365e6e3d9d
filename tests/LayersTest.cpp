// Keeps the rule of who may use whom, by reading the includes.
#include "gtest/gtest.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace
{
struct TInclude
{
    std::string File; ///< relative to the root
    std::string Path;
    bool Own = false; ///< written in quotes
};

/// The text between the first Open and the next Close, empty if there is none.
std::string Between(const std::string& Text, char Open, char Close)
{
    const auto Start = Text.find(Open);
    const auto End = Start == std::string::npos ? Start : Text.find(Close, Start + 1);
    return End == std::string::npos ? std::string() : Text.substr(Start + 1, End - Start - 1);
}

bool IsSource(const fs::path& File)
{
    const std::string Extension = File.extension().string();
    return Extension == ".cpp" || Extension == ".h" || Extension == ".cc" || File.filename() == "CMakeLists.txt";
}

/// Calls Use with each line of the sources and build files below a folder, and with the file's name.
template <typename TUse> void ForEachLine(const fs::path& Root, const std::string& Folder, TUse Use)
{
    for (const auto& Entry : fs::recursive_directory_iterator(Root / Folder))
    {
        if (!IsSource(Entry.path()))
            continue;
        std::ifstream Stream(Entry.path());
        for (std::string Line; std::getline(Stream, Line);)
            Use(fs::relative(Entry.path(), Root).string(), Line);
    }
}

std::vector<TInclude> IncludesBelow(const fs::path& Root, const std::string& Layer)
{
    std::vector<TInclude> Result;
    ForEachLine(Root, Layer, [&](const std::string& File, const std::string& Line) {
        if (Line.starts_with("#include <"))
            Result.push_back({File, Between(Line, '<', '>'), false});
        else if (Line.starts_with("#include \""))
            Result.push_back({File, Between(Line, '"', '"'), true});
    });
    return Result;
}

bool StartsWithAny(const std::string& Text, const std::vector<std::string>& Prefixes)
{
    return std::any_of(Prefixes.begin(), Prefixes.end(),
                       [&](const std::string& Prefix) { return Text.starts_with(Prefix); });
}

/// A header of the language's library has neither a folder nor an extension; those of Qt begin with a capital.
bool IsStandard(const std::string& Header)
{
    return Header.find_first_of("./") == std::string::npos && !Header.starts_with('Q');
}

struct TLayer
{
    std::string Folder;
    std::vector<std::string> MayUse;    ///< our own folders
    std::vector<std::string> Libraries; ///< outside headers, by their beginning; "*" is any
};

const std::vector<TLayer> Layers = {
    {"host", {"host/"}, {}},
    {"platform", {"platform/"}, {"*"}},
    {"runtime", {"host/", "platform/", "runtime/"}, {"fmt/", "toml++/", "duktape.", "nlohmann/"}},
    {"package", {"host/", "platform/", "package/"}, {}},
    {"basics", {"host/", "QX", "pages/QX"}, {"archive", "locale.h"}},
    {"apps/shared", {"host/", "platform/", "runtime/", "apps/shared/"}, {"fmt/"}},
    {"apps/import", {"host/", "platform/", "runtime/", "apps/import/"}, {"fmt/"}},
    {"apps/quexley",
     {"host/", "platform/", "runtime/", "apps/shared/", "apps/import/", "apps/quexley/"},
     {"fmt/", "CLI/", "nlohmann/"}},
    {"apps/designer", {"host/", "platform/", "runtime/", "apps/shared/", "apps/import/", "apps/designer/"}, {"Q"}},
};

/// Libraries that one place alone knows.
const std::vector<std::pair<std::string, std::string>> Rooms = {
    {"toml++/", "runtime/projects/Toml"},
    {"duktape.", "runtime/scripting/"},
    {"libxml/", "platform/Xml"},
    {"uv.h", "platform/"},
    {"Q", "apps/designer/"},
    {"archive", "basics/QXArchiveWriter.cpp"},
};

/// What systems differ in, by which it is called.
const std::vector<std::string> WordsOfSystems = {
    "fopen(",  "tmpfile(", "getenv(",  "<filesystem>", "std::filesystem",
    "symlink", ".so\"",    "\"PATH\"", "-Wl,",         "-fvisibility",
};

/// What a dry run would not notice: QXFiles() does the same.
const std::vector<std::string> WordsOfWriting = {"Files::Copy(", "Files::Delete(", "Files::Write(",
                                                 "Files::ForceFolders("};

void ExpectNone(const std::string& Folder, const std::vector<std::string>& Words)
{
    ForEachLine(QUEXLEY_SOURCE_DIR, Folder, [&](const std::string& File, const std::string& Line) {
        for (const std::string& Word : Words)
            EXPECT_EQ(Line.find(Word), std::string::npos) << File << ": " << Line;
    });
}
} // namespace

TEST(Layers, EachUsesOnlyWhatItMay)
{
    const fs::path Root = QUEXLEY_SOURCE_DIR;
    for (const TLayer& Layer : Layers)
    {
        const std::vector<TInclude> Includes = IncludesBelow(Root, Layer.Folder);
        ASSERT_FALSE(Includes.empty()) << Layer.Folder;
        for (const TInclude& Include : Includes)
        {
            const bool Allowed = Include.Own
                                     ? StartsWithAny(Include.Path, Layer.MayUse)
                                     : IsStandard(Include.Path) || Layer.Libraries == std::vector<std::string>{"*"} ||
                                           StartsWithAny(Include.Path, Layer.Libraries);
            EXPECT_TRUE(Allowed) << Include.File << " includes " << Include.Path;
        }
    }
}

TEST(Layers, ALibraryIsKnownInOneRoom)
{
    const fs::path Root = QUEXLEY_SOURCE_DIR;
    for (const TLayer& Layer : Layers)
        for (const TInclude& Include : IncludesBelow(Root, Layer.Folder))
            for (const auto& [Library, Room] : Rooms)
                if (!Include.Own && Include.Path.starts_with(Library))
                {
                    EXPECT_TRUE(Include.File.starts_with(Room)) << Include.File << " includes " << Include.Path;
                }
}

TEST(Layers, WhatSystemsDifferInStandsInPlatform)
{
    for (const std::string Folder : {"host", "runtime", "package", "apps"})
        ExpectNone(Folder, WordsOfSystems);
}

TEST(Layers, APackageWritesThroughItsHost)
{
    ExpectNone("package", WordsOfWriting);
}
