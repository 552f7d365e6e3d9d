#include "platform/Text.h"
#include "platform/Xml.h"
#include "platform/XmlEdit.h"
#include "tests/fuzz/FuzzTarget.h"

using Fuzz::Require;

namespace
{
const TXmlAttribute Wanted[] = {{"New", "<&\"'>"}, {"Name", "2"}};

/// The names of all elements and what they hold.
std::string Outline(const TXmlDocument& Document, std::size_t WithoutAttributes)
{
    std::string Result;
    for (const TXmlElement& Element : Document.DocumentElement().SelectNodes("//*"))
    {
        Result += Element.Name() + '(' + Element.Text();
        if (Element.Number() != WithoutAttributes)
            Result += Element.Attribute("New") + ',' + Element.Attribute("Name");
        Result += ')';
    }
    return Result;
}

void Check(std::string_view Input)
{
    TXmlDocument Document;
    Require(Document.LoadFromBytes(Input) || !Document.ParseError().Reason.empty(), "an error has a reason");
    static_cast<void>(SetXmlAttributes(Input, 0, Wanted));
    if (!Texts::IsValidUtf8(Input) || !Document.LoadFromText(Input))
        return;
    for (const std::string_view Choice : {"/*", "//*[last()]", "//*[@Name]", "//*[not(*)]"})
    {
        const auto Element = Document.DocumentElement().SelectNode(std::string(Choice));
        if (!Element)
            continue;
        const auto Edited = SetXmlAttributes(Input, Element->Number(), Wanted);
        TXmlDocument After;
        Require(Edited && After.LoadFromText(*Edited), "a document stays well-formed");
        Require(Outline(After, Element->Number()) == Outline(Document, Element->Number()), "the rest stays");
        const auto Elements = After.DocumentElement().SelectNodes("//*");
        for (const TXmlAttribute& Attribute : Wanted)
            Require(Elements.at(Element->Number()).Attribute(Attribute.Name) == Attribute.Value, "attributes are set");
    }
}
const TFuzzTarget Target("xml", Check);
} // namespace
