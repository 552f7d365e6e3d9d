#include "platform/Xml.h"

#include "platform/Files.h"
#include "tests/DataFile.h"
#include "tests/TempFolder.h"

#include "gtest/gtest.h"

#include <chrono>

namespace
{
std::vector<std::string> Values(const TXmlElement& Element, const std::string& Path, std::string_view Attribute)
{
    std::vector<std::string> Result;
    for (const TXmlElement& Found : Element.SelectNodes(Path))
        Result.push_back(Found.Attribute(Attribute));
    return Result;
}

constexpr std::string_view Sample = R"(<?xml version="1.0" encoding="utf-16"?>
<!-- written by hand -->
<Project xmlns:p='urn:p'>
  <CSHARP Name = 'R&amp;D "x"'>
    <Files><File RelPath="a.cs"/><p:File RelPath="p.cs"/></Files>
    <Files><File RelPath="b.cs"/><File relpath="c"/></Files>
    <Text>one <b>two</b><![CDATA[ <three>]]>&#x20AC;</Text>
    <CSharp.Personality><Options Name="TargetName">app</Options></CSharp.Personality>
  </CSHARP>
</Project>)";
} // namespace

TEST(Xml, SelectsAndReadsRelativeToTheElement)
{
    TXmlDocument Document;
    ASSERT_TRUE(Document.LoadFromText(Sample)) << Document.ParseError().Reason;
    const TXmlElement Root = Document.DocumentElement();
    EXPECT_EQ(Root.Name(), "Project");
    const auto Language = Root.SelectNode("CSHARP");
    ASSERT_TRUE(Language);
    EXPECT_EQ(Language->Attribute("Name"), "R&D \"x\"");
    EXPECT_FALSE(Language->HasAttribute("name"));
    EXPECT_EQ(Language->SelectNode("Text")->Text(), "one two <three>€");
    EXPECT_EQ(Language->SelectNode("*[p:x]"), std::nullopt);
    using TList = std::vector<std::string>;
    EXPECT_EQ(Values(Root, "CSHARP/Files/File", "RelPath"), (TList{"a.cs", "b.cs", ""}));
    EXPECT_EQ(Values(*Language, "Files/File", "RelPath"), (TList{"a.cs", "b.cs", ""}));
    EXPECT_EQ(Values(*Language, "/Project/CSHARP/Files/*[2]", "RelPath"), (TList{"p.cs", ""}));
    EXPECT_EQ(Language->SelectNodes("Files/*")[1].Name(), "p:File");
    EXPECT_EQ(Language->SelectNode("CSharp.Personality/Options[@Name=\"TargetName\"]")->Text(), "app");
    for (const char* Path : {"File", "files/File", "@Name", "Files[", "", "count(Files)", "x:File", "Text/text()"})
        EXPECT_TRUE(Language->SelectNodes(Path).empty()) << Path;
}

TEST(Xml, TellsNamespacesAndSetsAttributes)
{
    TXmlDocument Loaded;
    ASSERT_TRUE(Loaded.LoadFromText("\xEF\xBB\xBF<a xmlns=\"http://x/2003\" p:q='1' xmlns:p='urn:p'><b/></a>"));
    const TXmlDocument Document = std::move(Loaded);
    TXmlElement Root = Document.DocumentElement();
    EXPECT_EQ(Root.Attribute("xmlns"), "http://x/2003");
    EXPECT_TRUE(Root.HasAttribute("xmlns"));
    EXPECT_TRUE(Root.HasAttribute("p:q"));
    EXPECT_FALSE(Root.HasAttribute("q"));
    TXmlElement Child = *Root.SelectNode("*");
    EXPECT_FALSE(Child.HasAttribute("xmlns"));
    Child.SetAttribute("Name", "a<b>&\"\xFF");
    Child.SetAttribute("Name", Child.Attribute("Name") + "!");
    EXPECT_EQ(Root.SelectNode("*")->Attribute("Name"), "a<b>&\"\uFFFD!");
}

TEST(Xml, MalformedTextsNameReasonAndLine)
{
    testing::internal::CaptureStderr();
    const auto Load = [](const std::string& Text, const std::string& Part) {
        TXmlDocument Document;
        EXPECT_FALSE(Document.LoadFromText(Text));
        const auto& [Reason, Line] = std::pair(Document.ParseError().Reason, Document.ParseError().Line);
        EXPECT_TRUE(!Reason.empty() && Reason.find('\n') == Reason.npos) << Reason;
        return TColumns{std::to_string(Line), Reason.find(Part) != Reason.npos ? Part : Reason};
    };
    CheckTable("exports", "malformed XML", [&](const TColumns& Row) { return Load(Row[0], Row.back()); });
    std::string Deep;
    for (int Level = 0; Level < 1000000; ++Level)
        Deep += "<a>";
    EXPECT_EQ(Load(Deep, "256 levels"), (TColumns{"1", "256 levels"}));
    std::string Wide = "<a>\n<!-- = -->\n<b c=''";
    for (int Attribute = 0; Attribute < 1000000; ++Attribute)
        Wide += " a" + std::to_string(Attribute) + " = '>'";
    EXPECT_EQ(Load(Wide + "/></a>", "more than 10000 attributes"), (TColumns{"3", "more than 10000 attributes"}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Xml, ProjectFilesAreReadAsTheyAreWritten)
{
    CheckTable("texts", "project file", [](const TColumns& Row) {
        TXmlDocument Document;
        const bool Loaded = Document.LoadFromProject(Row[0]);
        return TColumns{Loaded ? Document.DocumentElement().Attribute("b") : Document.ParseError().Reason};
    });
}

TEST(Xml, LoadsFilesInTheirEncodingAndLooksAtNothingElse)
{
    const TTempFolder Folder;
    Files::Write(Folder / "evil.dtd", "<!ENTITY x 'read'>");
    std::string Long;
    Long.resize(11000000, 'x');
    const struct
    {
        std::string Bytes, Value;
    } Cases[] = {
        {"<?xml version='1.0' encoding='Windows-1252'?><a b='\xFC\x80'/>", "ü€"},
        {"<?xml version='1.0'?><a b='ü'/>", "ü"},
        {std::string("\xFF\xFE<\0a\0 \0b\0=\0'\0\xFC\0'\0/\0>\0", 22), "ü"},
        {"<!DOCTYPE a SYSTEM '" + (Folder / "evil.dtd") + "'><a b='1'>&x;</a>", "1"},
        {"<a b='" + Long + "'/>", Long},
    };
    for (const auto& Case : Cases)
    {
        Files::Write(Folder / "a.xml", Case.Bytes);
        TXmlDocument Document;
        ASSERT_TRUE(Document.LoadFromFile(Folder / "A.XML")) << Document.ParseError().Reason;
        EXPECT_TRUE(Document.DocumentElement().Attribute("b") == Case.Value) << Case.Bytes.substr(0, 80);
        EXPECT_EQ(Document.DocumentElement().Text(), "");
    }
    TXmlDocument Missing;
    EXPECT_FALSE(Missing.LoadFromFile(Folder / "none.xml"));
    EXPECT_EQ(Missing.ParseError().Reason, "No such file or directory");
}

TEST(Xml, LargeProjectsAreQuick)
{
    std::string Text = "<P><Files><Include>";
    for (int Index = 0; Index < 10000; ++Index)
        Text += "<File RelPath='Some\\Folder\\Class" + std::to_string(Index) +
                ".cs' SubType='Code' BuildAction='Compile' DependentUpon='Some.resx' Link='..\\Another\\Place.cs'/>\n";
    Text += "</Include></Files></P>";
    const auto Start = std::chrono::steady_clock::now();
    TXmlDocument Document;
    ASSERT_TRUE(Document.LoadFromText(Text));
    EXPECT_EQ(Values(Document.DocumentElement(), "Files/Include/File", "Link").size(), 10000U);
    const auto Taken = std::chrono::steady_clock::now() - Start;
    RecordProperty("microseconds",
                   static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(Taken).count()));
    EXPECT_LT(Taken, std::chrono::seconds(5));
}
