#include "platform/XmlEdit.h"

#include "platform/Xml.h"

#include "gtest/gtest.h"

namespace
{
const std::vector<TXmlAttribute> Wanted = {{"A", "<&\"'>"}, {"B", "2"}};

/// Sets the attributes of the first element that is called x or bare.
std::string Edit(const std::string& Bytes)
{
    TXmlDocument Document;
    if (!Document.LoadFromBytes(Bytes))
        return Document.ParseError().Reason;
    const auto Element = Document.DocumentElement().SelectNode("//*[@N='x' or self::bare]");
    return Element ? SetXmlAttributes(Bytes, Element->Number(), Wanted).value_or("not found") : "not selected";
}
} // namespace

TEST(XmlEdit, AttributesKeepTheirLayoutAndNewOnesTakeOverTheLast)
{
    const std::pair<std::string, std::string> Cases[] = {
        {"<r N='x' A='0' B=\"\"/>", "<r N='x' A='&lt;&amp;\"&apos;&gt;' B=\"2\"/>"},
        {"<r B = '1'\r\n\tC='&lt;>/>' A\n=\n\"&amp;\" N=\"&#120;\"></r >\n",
         "<r B = '2'\r\n\tC='&lt;>/>' A\n=\n\"&lt;&amp;&quot;'&gt;\" N=\"&#120;\"></r >\n"},
        {"<r\r\n   N = 'x'\r\n/>", "<r\r\n   N = 'x'\r\n   A = '&lt;&amp;\"&apos;&gt;'\r\n   B = '2'\r\n/>"},
        {"<r B='0' N='x' aA=\"A='1'\">t</r>", "<r B='2' N='x' aA=\"A='1'\" A=\"&lt;&amp;&quot;'&gt;\">t</r>"},
        {"<r><bare/></r>", "<r><bare A=\"&lt;&amp;&quot;'&gt;\" B=\"2\"/></r>"},
    };
    for (const auto& [Before, After] : Cases)
        EXPECT_EQ(Edit(Before), After);
}

TEST(XmlEdit, KnowsAnElementFromWhatLooksLikeOne)
{
    const std::string Fronts[] = {
        "<r>",
        "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?>\r\n<!-- <e> ' - -->\r<r\n>",
        "<?xml version=\"1.0\" encoding=\"Windows-1252\"?><r \xFC='\xE4'><\xFC/>\xDF",
        "<!DOCTYPE r [<!ELEMENT r ANY><!-- \"<e> ]> --><?pi ]>' ?><!ATTLIST r C CDATA '>]>' D CDATA \"'\">]><r>",
        "<!DOCTYPE r SYSTEM \"[<e>\"><?x <e>?><r>",
        "<r><![CDATA[<e>]]]]><![CDATA[>'<e N='x'>]]>a > \"b ' c<!----><!--<e>--><e C='!-->'/>",
        "<r><a b='/>'><c/></a ><p:q xmlns:p='urn:p'>]]</p:q><e N='y'/>",
    };
    const std::string Before = "<e N='x' B='' A='0'/><e N='x' A='1'/><!-- end --></r>\n\n";
    const std::string After = "<e N='x' B='2' A='&lt;&amp;\"&apos;&gt;'/><e N='x' A='1'/><!-- end --></r>\n\n";
    for (const std::string& Front : Fronts)
        EXPECT_EQ(Edit(Front + Before), Front + After);
}

TEST(XmlEdit, TextsThatAreCutOffAreSurvived)
{
    const std::string Whole =
        "<!DOCTYPE r [<!ATTLIST r C CDATA '>'>]><!-- --><r a = \"b\" c='d'><![CDATA[ ]]><?p ?></r>";
    for (std::size_t Length = 0; Length <= Whole.size(); ++Length)
    {
        const std::string Part = Whole.substr(0, Length);
        EXPECT_GE(SetXmlAttributes(Part, 0, Wanted).value_or(Part).size(), Length);
        EXPECT_EQ(SetXmlAttributes(Part, 2, Wanted), std::nullopt);
    }
}
