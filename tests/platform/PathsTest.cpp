#include "platform/Paths.h"

#include "gtest/gtest.h"

#include <string>

namespace
{
constexpr auto Posix = TPathStyle::Posix;
constexpr auto Windows = TPathStyle::Windows;
} // namespace

TEST(Paths, NormaliseFormsEachStyle)
{
    const struct
    {
        const char *Path, *Posix, *Windows;
    } Cases[] = {
        {"", "", ""},
        {".", ".", "."},
        {"a/..", ".", "."},
        {"./a/../", "./", ".\\"},
        {R"(a\\b/./c\)", "a/b/c/", R"(a\b\c\)"},
        {R"(a\b\..\..\..\c)", "../c", R"(..\c)"},
        {"../../a/..", "../..", R"(..\..)"},
        {"a...b/..c", "a...b/..c", R"(a...b\..c)"},
        {"/", "/", "\\"},
        {"/../a/..", "/", "\\"},
        {R"(\a\.\b)", "/a/b", R"(\a\b)"},
        {R"(C:\x\..\y)", "C:/y", R"(C:\y)"},
        {R"(C:\..\..)", "C:/", R"(C:\)"},
        {R"(c:x\..\..\y)", "c:../y", R"(c:..\y)"},
        {R"(\\server\share\a\..\..\b)", "/server/b", R"(\\server\share\b)"},
        {"//server/share", "/server/share", R"(\\server\share)"},
        {"äö/ü/../ß", "äö/ß", "äö\\ß"},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Paths::Normalise(Case.Path, Posix), Case.Posix) << Case.Path;
        EXPECT_EQ(Paths::Normalise(Case.Path, Windows), Case.Windows) << Case.Path;
    }
}

TEST(Paths, AbsolutePathsAreLeftAloneByJoinAndExpand)
{
    const struct
    {
        const char *Folder, *Path, *Posix, *Windows;
    } Cases[] = {
        {"/p", R"(obj\a.cs)", "/p/obj/a.cs", R"(\p\obj\a.cs)"},
        {R"(C:\p\)", "../a", "C:/a", R"(C:\a)"},
        {"/p", "/x/y", "/x/y", R"(\x\y)"},
        {"/p", R"(\x)", "/x", R"(\x)"},
        {"/p", R"(D:\x)", "D:/x", R"(D:\x)"},
        {R"(C:\p)", R"(\\s\h\x)", "/s/h/x", R"(\\s\h\x)"},
        {"", R"(a\b)", "a/b", R"(a\b)"},
        {"/p//", "", "/p/", R"(\p\)"},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Paths::Expand(Case.Path, Case.Folder, Posix), Case.Posix) << Case.Path;
        EXPECT_EQ(Paths::Expand(Case.Path, Case.Folder, Windows), Case.Windows) << Case.Path;
    }
    EXPECT_EQ(Paths::Join("a\\", "b/../c", Posix), "a\\b/../c");
    EXPECT_FALSE(Paths::IsAbsolute("a:", Posix) && !Paths::IsAbsolute("a:", Windows));
    EXPECT_FALSE(Paths::IsAbsolute("1:/x", Windows));
}

TEST(Paths, RelativeToLeadsBack)
{
    const struct
    {
        const char *Path, *Folder, *Posix, *Windows;
    } Cases[] = {
        {"/a/b/c.cs", "/a/b/", "c.cs", "c.cs"},
        {"/a/x/c.cs", "/a/b/d", "../../x/c.cs", R"(..\..\x\c.cs)"},
        {"/a/b", "/a/b", ".", "."},
        {"/a/", "/a/b", "../", "..\\"},
        {"/A/b", "/a", "../A/b", "b"},
        {R"(c:\a\B)", R"(C:\a)", "B", "B"},
        {R"(D:\a)", R"(C:\a)", "D:/a", R"(D:\a)"},
        {"a/b", "/a", "a/b", R"(a\b)"},
        {"x", "../y", "x", "x"},
        {"../x", "../y/z", "../../x", R"(..\..\x)"},
        {R"(\\s\h\x)", R"(\\S\H\y)", "../../../s/h/x", R"(..\x)"},
        {"/ab", "/a", "../ab", R"(..\ab)"},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Paths::RelativeTo(Case.Path, Case.Folder, Posix), Case.Posix) << Case.Path;
        EXPECT_EQ(Paths::RelativeTo(Case.Path, Case.Folder, Windows), Case.Windows) << Case.Path;
    }
}

TEST(Paths, PartsStayAsTheyAreWritten)
{
    const struct
    {
        const char *Path, *Folder, *BareName, *Extension;
    } Cases[] = {
        {R"(a\b/c.cs)", R"(a\b/)", "c", ".cs"},
        {"c.tar.gz", "", "c.tar", ".gz"},
        {"a.b/c", "a.b/", "c", ""},
        {R"(a.b\)", R"(a.b\)", "", ""},
        {"C:x.y", "C:", "x", ".y"},
        {".config", "", "", ".config"},
        {"a/b.", "a/", "b", "."},
        {"", "", "", ""},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Paths::Folder(Case.Path), Case.Folder);
        EXPECT_EQ(Paths::BareName(Case.Path), Case.BareName);
        EXPECT_EQ(Paths::Extension(Case.Path), Case.Extension);
        EXPECT_EQ(Paths::FileName(Case.Path), std::string(Case.BareName) + Case.Extension);
        EXPECT_EQ(Paths::ChangeExtension(Case.Path, ".x"), std::string(Case.Folder) + Case.BareName + ".x");
    }
}

TEST(Paths, TrailingDelimiters)
{
    const struct
    {
        const char *Path, *With, *Without;
    } Cases[] = {
        {"a", "a\\", "a"},
        {"a/", "a/", "a"},
        {R"(a\/\)", "a\\", "a"},
        {"", "", ""},
        {"/", "/", "/"},
        {"C:\\\\", "C:\\", "C:\\"},
        {R"(\\s\h)", R"(\\s\h\)", R"(\\s\h)"},
        {"C:", "C:\\", "C:"},
    };
    for (const auto& Case : Cases)
    {
        EXPECT_EQ(Paths::WithTrailing(Case.Path, Windows), Case.With);
        EXPECT_EQ(Paths::WithoutTrailing(Case.Path, Windows), Case.Without);
    }
    EXPECT_EQ(Paths::WithTrailing("a", Posix), "a/");
    EXPECT_EQ(Paths::WithoutTrailing("//", Posix), "/");
}
