// XML documents: strict, no entity declarations, no network.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TXmlDocument;

/// An element of a document; valid as long as the document lives.
class TXmlElement
{
public:
    [[nodiscard]] std::string Name() const;
    /// Which element of the document it is, in document order: 0 for the root.
    [[nodiscard]] std::size_t Number() const;
    /// The text below the element.
    [[nodiscard]] std::string Text() const;
    [[nodiscard]] bool HasAttribute(std::string_view Name) const;
    /// The attribute's value, empty if it is absent. "xmlns" gives the default name space declared here.
    [[nodiscard]] std::string Attribute(std::string_view Name) const;
    void SetAttribute(std::string_view Name, std::string_view Value);
    /// The first element that the XPath expression selects, relative to this one.
    [[nodiscard]] std::optional<TXmlElement> SelectNode(const std::string& Path) const;
    /// All elements that it selects, in document order. A malformed expression selects nothing.
    [[nodiscard]] std::vector<TXmlElement> SelectNodes(const std::string& Path) const;

private:
    friend class TXmlDocument;
    explicit TXmlElement(void* Node) : FNode(Node) {}
    void* FNode;
};

/// Why and where a document could not be parsed.
struct TXmlParseError
{
    std::string Reason; ///< without a line end
    int Line = 0;
};

class TXmlDocument
{
public:
    TXmlDocument();
    ~TXmlDocument();
    TXmlDocument(TXmlDocument&&) noexcept;
    TXmlDocument& operator=(TXmlDocument&&) noexcept;

    /// Parses UTF-8 text, whatever encoding its declaration names. False: see ParseError.
    [[nodiscard]] bool LoadFromText(std::string_view Text);
    /// Parses bytes in the encoding that they declare. False: see ParseError.
    [[nodiscard]] bool LoadFromBytes(std::string_view Bytes);
    /// Parses the bytes of a project file, which is not always XML to the letter: an encoding mark decides before the
    /// declaration, what has neither is UTF-8 or in the 8-bit code page, and bare ampersands stand for themselves.
    /// False: see ParseError.
    [[nodiscard]] bool LoadFromProject(std::string_view Bytes);
    /// Parses a file in the encoding that it declares. False, also for one that cannot be read: see ParseError.
    [[nodiscard]] bool LoadFromFile(const std::string& FileName);
    [[nodiscard]] const TXmlParseError& ParseError() const { return FError; }
    /// The root element of a document that was parsed.
    [[nodiscard]] TXmlElement DocumentElement() const;

private:
    bool Load(std::string_view Text, const char* Encoding);

    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
    TXmlParseError FError;
};
