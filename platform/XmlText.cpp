#include "platform/XmlText.h"

#include "platform/Text.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr std::string_view UnicodeMarks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};
constexpr std::string_view UnicodeNames[] = {"utf-8", "utf8", "utf-16", "utf-16le", "utf-16be", "unicode", "ucs-2"};
constexpr std::string_view CodePageNames[] = {"windows-1252", "cp1252"};
/// Standards that others read to the letter, in which "\" may be a currency sign and letters are missing.
constexpr struct
{
    std::string_view Encoding;
    const char* CodePage;
} CodePages[] = {{"shift_jis", "CP932"},      {"shift-jis", "CP932"}, {"x-sjis", "CP932"}, {"gb2312", "CP936"},
                 {"ks_c_5601-1987", "CP949"}, {"euc-kr", "CP949"},    {"big5", "CP950"}};
constexpr std::string_view Escapes[] = {"amp", "lt", "gt", "quot", "apos"};

template <typename TNames> bool Contains(const TNames& Names, std::string_view Name)
{
    return std::any_of(std::begin(Names), std::end(Names),
                       [=](std::string_view Item) { return Texts::Same(Item, Name); });
}

/// The encoding that the file declares in ASCII letters, or empty.
std::string_view DeclaredEncoding(std::string_view Bytes)
{
    if (!Bytes.starts_with("<?xml"))
        return {};
    const std::string_view Declaration = Bytes.substr(0, Bytes.find("?>"));
    const std::size_t Name = Declaration.find("encoding");
    const std::size_t Quote = Name == std::string_view::npos ? Name : Declaration.find_first_of("\"'", Name);
    if (Quote == std::string_view::npos)
        return {};
    const std::string_view Value = Declaration.substr(Quote + 1);
    return Value.substr(0, Value.find(Declaration[Quote]));
}

/// Whether an escape of XML begins here, with its "&".
bool BeginsEscape(std::string_view Text)
{
    const std::size_t End = Text.substr(0, 12).find(';');
    if (End == std::string_view::npos)
        return false;
    const std::string_view Name = Text.substr(1, End - 1);
    if (!Name.starts_with('#'))
        return std::find(std::begin(Escapes), std::end(Escapes), Name) != std::end(Escapes);
    const bool IsHexadecimal = Name.starts_with("#x");
    const std::string_view Digits = Name.substr(IsHexadecimal ? 2 : 1);
    return !Digits.empty() &&
           Digits.find_first_not_of(IsHexadecimal ? "0123456789abcdefABCDEF" : "0123456789") == std::string_view::npos;
}
} // namespace

std::optional<std::string> DecodeXml(std::string_view Bytes)
{
    if (std::any_of(std::begin(UnicodeMarks), std::end(UnicodeMarks),
                    [=](std::string_view Mark) { return Bytes.starts_with(Mark); }))
        return Texts::Decode(Bytes);
    // UTF-16 without a mark.
    if (Bytes.starts_with(std::string_view("<\0", 2)) || Bytes.starts_with(std::string_view("\0<", 2)))
        return Texts::FromUtf16(Bytes, Bytes.front() == '\0');
    const std::string_view Encoding = DeclaredEncoding(Bytes);
    if (Contains(CodePageNames, Encoding))
        return Texts::FromWindows1252(Bytes);
    if (Encoding.empty() || Contains(UnicodeNames, Encoding))
        return Texts::Decode(Bytes);
    return std::nullopt;
}

const char* DeclaredCodePage(std::string_view Bytes)
{
    const std::string_view Encoding = DeclaredEncoding(Bytes);
    const auto* Found = std::find_if(std::begin(CodePages), std::end(CodePages),
                                     [=](const auto& Row) { return Texts::Same(Row.Encoding, Encoding); });
    return Found == std::end(CodePages) ? nullptr : Found->CodePage;
}

std::string RepairAmpersands(std::string Text)
{
    if (Text.find('&') == std::string::npos)
        return Text;
    std::string Result;
    Result.reserve(Text.size());
    std::size_t Start = 0;
    for (std::size_t Place = Text.find('&'); Place != std::string_view::npos; Place = Text.find('&', Start))
    {
        Result.append(Text, Start, Place - Start)
            .append(BeginsEscape(std::string_view(Text).substr(Place)) ? "&" : "&amp;");
        Start = Place + 1;
    }
    return Result.append(Text, Start);
}
