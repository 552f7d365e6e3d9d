#include "platform/Xml.h"

#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/XmlText.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xpath.h>
#include <mutex>
#include <new>
#include <utility>

namespace
{
/// Elements may stand no deeper in each other.
constexpr int MaximumDepth = 256;
/// An element may have no more attributes: the library compares each with all others.
constexpr std::ptrdiff_t MaximumAttributes = 10'000;
/// Long texts are welcome: what makes them dangerous, entities and depth, is refused here.
constexpr int ParseOptions = XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_COMPACT;

constexpr const char* Utf8 = "UTF-8";

/// The declaration of the default name space reads like an attribute and is none.
constexpr std::string_view DefaultNamespaceName = "xmlns";

template <auto Free> struct TFree
{
    template <typename T> void operator()(T* Object) const { Free(Object); }
};
/// The context in which a document's expressions are evaluated: null before the first one.
xmlXPathContext* ContextOf(const xmlDoc* Document)
{
    return static_cast<xmlXPathContext*>(Document->_private);
}

void FreeDocument(xmlDoc* Document)
{
    xmlXPathFreeContext(ContextOf(Document));
    xmlFreeDoc(Document);
}

using TDocument = std::unique_ptr<xmlDoc, TFree<FreeDocument>>;
using TParser = std::unique_ptr<xmlParserCtxt, TFree<xmlFreeParserCtxt>>;
using TXPathObject = std::unique_ptr<xmlXPathObject, TFree<xmlXPathFreeObject>>;

const xmlChar* ToXml(const std::string& Text)
{
    return reinterpret_cast<const xmlChar*>(Text.c_str());
}

std::string_view View(const xmlChar* Text)
{
    return Text == nullptr ? std::string_view() : reinterpret_cast<const char*>(Text);
}

/// Keeps the first error that the library reports in this scope, and all of them from standard error.
class TErrorCollector
{
public:
    TErrorCollector() : FOldHandler(xmlStructuredError), FOldContext(xmlStructuredErrorContext)
    {
        xmlSetStructuredErrorFunc(this, &OnError);
    }
    ~TErrorCollector() { xmlSetStructuredErrorFunc(FOldContext, FOldHandler); }
    TErrorCollector(const TErrorCollector&) = delete;
    TErrorCollector& operator=(const TErrorCollector&) = delete;

    /// The library's reasons end in a line end, and some are of two lines.
    void Add(std::string_view Reason, int Line)
    {
        if (FFirst.Reason.empty())
            FFirst = {Texts::Replace(Texts::Trim(Reason), "\n", " "), Line};
    }
    [[nodiscard]] const TXmlParseError& First() const { return FFirst; }

private:
    /// The library's versions differ in whether the error is constant.
    template <typename TError> static void OnError(void* Collector, TError* Error)
    {
        if (Error->level >= XML_ERR_ERROR && Error->message != nullptr)
            static_cast<TErrorCollector*>(Collector)->Add(Error->message, Error->line);
    }

    xmlStructuredErrorFunc FOldHandler;
    void* FOldContext;
    TXmlParseError FFirst;
};

/// Ends the parse with an error of ours.
void Refuse(void* Parser, std::string_view Reason)
{
    auto* Context = static_cast<xmlParserCtxtPtr>(Parser);
    static_cast<TErrorCollector*>(Context->_private)->Add(Reason, xmlSAX2GetLineNumber(Context));
    Context->wellFormed = 0;
    xmlStopParser(Context);
}

void OnEntityDeclaration(void* Parser, const xmlChar* Name, int /*Type*/, const xmlChar* /*PublicId*/,
                         const xmlChar* /*SystemId*/, xmlChar* /*Content*/)
{
    Refuse(Parser, "Entity declarations are not allowed: " + std::string(View(Name)));
}

void OnStartElement(void* Parser, const xmlChar* Name, const xmlChar* Prefix, const xmlChar* Uri, int NamespaceCount,
                    const xmlChar** Namespaces, int AttributeCount, int DefaultedCount, const xmlChar** Attributes)
{
    if (static_cast<xmlParserCtxtPtr>(Parser)->nodeNr >= MaximumDepth)
        Refuse(Parser, "Elements stand more than " + std::to_string(MaximumDepth) + " levels deep");
    else
        xmlSAX2StartElementNs(Parser, Name, Prefix, Uri, NamespaceCount, Namespaces, AttributeCount, DefaultedCount,
                              Attributes);
}

/// How many attributes a start tag has, as far as its bytes tell.
std::ptrdiff_t CountAttributes(std::string_view Tag)
{
    std::ptrdiff_t Count = 0;
    char Quote = '\0';
    bool HasEquals = false;
    for (const char Byte : Tag)
    {
        if (Quote != '\0')
            Quote = Byte == Quote ? '\0' : Quote;
        else if (Byte == '>')
            break;
        else if (Byte == '"' || Byte == '\'')
        {
            Quote = Byte;
            Count += std::exchange(HasEquals, false) ? 1 : 0;
        }
        else
            HasEquals = HasEquals || Byte == '=';
    }
    return Count;
}

/// The line of the first element with too many attributes, 0 if there is none. A start tag holds no other "<".
int FindOvergrownElement(std::string_view Text)
{
    constexpr auto ShortestTag = static_cast<std::size_t>(MaximumAttributes) * std::string_view(" a=''").size();
    std::size_t End = 0;
    for (std::size_t Start = Text.find('<'); Text.size() - std::min(Start, Text.size()) > ShortestTag; Start = End)
    {
        End = std::min(Text.find('<', Start + 1), Text.size());
        if (End - Start <= ShortestTag)
            continue;
        const std::string_view Tag = Text.substr(Start, End - Start);
        const bool IsElement = Tag.find_first_of("!?") > 2; // in UTF-16 a byte stands between
        if (IsElement && CountAttributes(Tag) > MaximumAttributes)
            return 1 +
                   static_cast<int>(std::count(Text.begin(), Text.begin() + static_cast<std::ptrdiff_t>(Start), '\n'));
    }
    return 0;
}

/// Parses a text in an encoding, or in that which it declares. Null: see Errors.
TDocument Parse(std::string_view Text, const char* Encoding, TErrorCollector& Errors)
{
    if (Text.empty() || Text.size() > INT_MAX)
    {
        Errors.Add(Text.empty() ? "Document is empty" : "Document is too large", 1);
        return nullptr;
    }
    if (const int Line = FindOvergrownElement(Text); Line != 0)
    {
        Errors.Add("An element has more than " + std::to_string(MaximumAttributes) + " attributes", Line);
        return nullptr;
    }
    const TParser Parser(xmlNewParserCtxt());
    if (!Parser)
        throw std::bad_alloc();
    Parser->_private = &Errors;
    Parser->sax->entityDecl = OnEntityDeclaration;
    Parser->sax->startElementNs = OnStartElement;
    const int Options = ParseOptions | (Encoding != nullptr ? XML_PARSE_IGNORE_ENC : 0);
    // What it takes for UTF-8 of its own accord the library need not convert.
    const bool IsPlain = Encoding == Utf8 && Text.substr(0, 4).find('\0') == std::string_view::npos;
    TDocument Document(xmlCtxtReadMemory(Parser.get(), Text.data(), static_cast<int>(Text.size()), nullptr,
                                         IsPlain ? nullptr : Encoding, Options));
    if (Document && Parser->wellFormed != 0 && Parser->nsWellFormed != 0)
        return Document;
    Errors.Add("Document is malformed", 1);
    return nullptr;
}

std::string QualifiedName(const xmlNs* Namespace, const xmlChar* Name)
{
    std::string Result;
    if (Namespace != nullptr && Namespace->prefix != nullptr)
        Result.append(View(Namespace->prefix)).append(":");
    return Result.append(View(Name));
}

bool IsNamed(const xmlAttr& Attribute, std::string_view Name)
{
    const bool HasPrefix = Attribute.ns != nullptr && Attribute.ns->prefix != nullptr;
    return HasPrefix ? QualifiedName(Attribute.ns, Attribute.name) == Name : View(Attribute.name) == Name;
}

xmlNode* Node(void* Pointer)
{
    return static_cast<xmlNode*>(Pointer);
}

std::string Content(const xmlNode* Item)
{
    const xmlNode* Only = Item->children;
    if (Only != nullptr && Only->next == nullptr && Only->type == XML_TEXT_NODE)
        return std::string(View(Only->content));
    xmlChar* Text = xmlNodeGetContent(Item);
    std::string Result(View(Text));
    xmlFree(Text);
    return Result;
}

/// The node behind this one in document order, or null.
const xmlNode* NextNode(const xmlNode* Item)
{
    if (Item->type == XML_ELEMENT_NODE && Item->children != nullptr)
        return Item->children;
    while (Item != nullptr && Item->next == nullptr)
        Item = Item->parent;
    return Item == nullptr ? nullptr : Item->next;
}

/// The declaration of the default name space at an element, or null.
const xmlNs* DefaultNamespace(const xmlNode* Element)
{
    const xmlNs* Found = Element->nsDef;
    while (Found != nullptr && Found->prefix != nullptr)
        Found = Found->next;
    return Found;
}

const xmlAttr* FindAttribute(const xmlNode* Element, std::string_view Name)
{
    const xmlAttr* Found = Element->properties;
    while (Found != nullptr && !IsNamed(*Found, Name))
        Found = Found->next;
    return Found;
}

/// The result of an expression at an element; null for a malformed one.
TXPathObject Evaluate(xmlNode* Element, const std::string& Path)
{
    const TErrorCollector Silence;
    if (ContextOf(Element->doc) == nullptr)
        Element->doc->_private = xmlXPathNewContext(Element->doc);
    xmlXPathSetContextNode(Element, ContextOf(Element->doc));
    return TXPathObject(xmlXPathEval(ToXml(Path), ContextOf(Element->doc)));
}

/// Whether an expression is but the names of children in each other.
bool IsPlainPath(std::string_view Path)
{
    bool IsStart = true;
    for (const char Character : Path)
    {
        const char Folded = static_cast<char>(Character | 0x20);
        const bool IsLetter = Folded >= 'a' && Folded <= 'z';
        if (!IsLetter && (IsStart || (Character != '/' && Character != '.')))
            return false;
        IsStart = Character == '/';
    }
    return !IsStart;
}

/// False when the visitor has enough.
template <typename TVisitor> bool ForEachBelow(xmlNode* Element, std::string_view Path, const TVisitor& Visitor)
{
    const std::size_t End = std::min(Path.find('/'), Path.size());
    for (xmlNode* Child = Element->children; Child != nullptr; Child = Child->next)
    {
        if (Child->type != XML_ELEMENT_NODE || Child->ns != nullptr || View(Child->name) != Path.substr(0, End))
            continue;
        if (End == Path.size() ? !Visitor(Child) : !ForEachBelow(Child, Path.substr(End + 1), Visitor))
            return false;
    }
    return true;
}

template <typename TVisitor> void ForEachSelected(xmlNode* Element, const std::string& Path, const TVisitor& Visitor)
{
    if (IsPlainPath(Path))
    {
        static_cast<void>(ForEachBelow(Element, Path, Visitor));
        return;
    }
    const TXPathObject Found = Evaluate(Element, Path);
    const xmlNodeSet* Nodes = Found ? Found->nodesetval : nullptr;
    for (int Index = 0; Nodes != nullptr && Index < Nodes->nodeNr; ++Index)
        if (Nodes->nodeTab[Index]->type == XML_ELEMENT_NODE && !Visitor(Nodes->nodeTab[Index]))
            break;
}
} // namespace

struct TXmlDocument::TImpl
{
    explicit TImpl(TDocument ADocument) : Document(std::move(ADocument)) {}
    TDocument Document;
};

std::string TXmlElement::Name() const
{
    return QualifiedName(Node(FNode)->ns, Node(FNode)->name);
}

std::size_t TXmlElement::Number() const
{
    std::size_t Result = 0;
    for (const xmlNode* Item = xmlDocGetRootElement(Node(FNode)->doc); Item != FNode; Item = NextNode(Item))
        if (Item->type == XML_ELEMENT_NODE)
            ++Result;
    return Result;
}

std::string TXmlElement::Text() const
{
    return Content(Node(FNode));
}

bool TXmlElement::HasAttribute(std::string_view Name) const
{
    if (Name == DefaultNamespaceName)
        return DefaultNamespace(Node(FNode)) != nullptr;
    return FindAttribute(Node(FNode), Name) != nullptr;
}

std::string TXmlElement::Attribute(std::string_view Name) const
{
    if (Name == DefaultNamespaceName)
    {
        const xmlNs* Declared = DefaultNamespace(Node(FNode));
        return Declared == nullptr ? std::string() : std::string(View(Declared->href));
    }
    const xmlAttr* Found = FindAttribute(Node(FNode), Name);
    return Found == nullptr ? std::string() : Content(reinterpret_cast<const xmlNode*>(Found));
}

void TXmlElement::SetAttribute(std::string_view Name, std::string_view Value)
{
    const TErrorCollector Silence;
    xmlSetProp(Node(FNode), ToXml(std::string(Name)), ToXml(Texts::MakeValidUtf8(Value)));
}

std::optional<TXmlElement> TXmlElement::SelectNode(const std::string& Path) const
{
    std::optional<TXmlElement> Result;
    ForEachSelected(Node(FNode), Path, [&](xmlNode* Found) {
        Result = TXmlElement(Found);
        return false;
    });
    return Result;
}

std::vector<TXmlElement> TXmlElement::SelectNodes(const std::string& Path) const
{
    std::vector<TXmlElement> Result;
    ForEachSelected(Node(FNode), Path, [&](xmlNode* Found) {
        Result.push_back(TXmlElement(Found));
        return true;
    });
    return Result;
}

TXmlDocument::TXmlDocument() = default;
TXmlDocument::~TXmlDocument() = default;
TXmlDocument::TXmlDocument(TXmlDocument&&) noexcept = default;
TXmlDocument& TXmlDocument::operator=(TXmlDocument&&) noexcept = default;

bool TXmlDocument::Load(std::string_view Text, const char* Encoding)
{
    static std::once_flag Initialised;
    std::call_once(Initialised, xmlInitParser);
    TErrorCollector Errors;
    TDocument Document = Parse(Text, Encoding, Errors);
    FImpl = Document ? std::make_unique<TImpl>(std::move(Document)) : nullptr;
    FError = FImpl ? TXmlParseError() : Errors.First();
    return FImpl != nullptr;
}

bool TXmlDocument::LoadFromText(std::string_view Text)
{
    return Load(Text, Utf8);
}

bool TXmlDocument::LoadFromBytes(std::string_view Bytes)
{
    return Load(Bytes, DeclaredCodePage(Bytes));
}

bool TXmlDocument::LoadFromProject(std::string_view Bytes)
{
    if (std::optional<std::string> Text = DecodeXml(Bytes))
        return LoadFromText(RepairAmpersands(std::move(*Text)));
    // The library knows the encoding. In one that switches by escapes an ampersand may be half a letter.
    const bool Switches = Bytes.find('\x1B') != std::string_view::npos;
    return LoadFromBytes(Switches ? std::string(Bytes) : RepairAmpersands(std::string(Bytes)));
}

bool TXmlDocument::LoadFromFile(const std::string& FileName)
{
    std::string Bytes;
    try
    {
        Bytes = Files::Read(FileName);
    }
    catch (const EFileError& Error)
    {
        FImpl.reset();
        FError = {Error.Reason, 0};
        return false;
    }
    return LoadFromBytes(Bytes);
}

TXmlElement TXmlDocument::DocumentElement() const
{
    return TXmlElement(xmlDocGetRootElement(FImpl->Document.get()));
}
