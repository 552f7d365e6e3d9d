#include "platform/CodePages.h"

#include <algorithm>

namespace
{
constexpr CodePages::TCodePage Table[] = {
    {37, "IBM EBCDIC (US-Canada)", "IBM037"},
    {437, "OEM United States", "CP437"},
    {500, "IBM EBCDIC (International)", "IBM500"},
    {737, "Greek (DOS)", "CP737"},
    {775, "Baltic (DOS)", "CP775"},
    {850, "Western European (DOS)", "CP850"},
    {852, "Central European (DOS)", "CP852"},
    {855, "Cyrillic (OEM)", "CP855"},
    {857, "Turkish (DOS)", "CP857"},
    {858, "Multilingual Latin I + Euro (OEM)", "CP858"},
    {860, "Portuguese (DOS)", "CP860"},
    {861, "Icelandic (DOS)", "CP861"},
    {862, "Hebrew (DOS)", "CP862"},
    {863, "French Canadian (DOS)", "CP863"},
    {864, "Arabic (DOS)", "CP864"},
    {865, "Nordic (DOS)", "CP865"},
    {866, "Cyrillic (DOS)", "CP866"},
    {869, "Greek, Modern (DOS)", "CP869"},
    {870, "IBM EBCDIC (Multilingual Latin-2)", "IBM870"},
    {874, "Thai (Windows)", "CP874"},
    {932, "Japanese (Shift-JIS)", "CP932"},
    {936, "Chinese Simplified (GB2312)", "CP936"},
    {949, "Korean", "CP949"},
    {950, "Chinese Traditional (Big5)", "BIG5"},
    {1026, "IBM EBCDIC (Turkish Latin-5)", "IBM1026"},
    {1047, "IBM Latin-1", "IBM1047"},
    {1140, "IBM EBCDIC (US-Canada-Euro)", "IBM1140"},
    {1250, "Central European (Windows)", "CP1250"},
    {1251, "Cyrillic (Windows)", "CP1251"},
    {1252, "Western European (Windows)", "CP1252"},
    {1253, "Greek (Windows)", "CP1253"},
    {1254, "Turkish (Windows)", "CP1254"},
    {1255, "Hebrew (Windows)", "CP1255"},
    {1256, "Arabic (Windows)", "CP1256"},
    {1257, "Baltic (Windows)", "CP1257"},
    {1258, "Vietnamese (Windows)", "CP1258"},
    {1361, "Korean (Johab)", "JOHAB"},
    {10000, "Western European (Mac)", "MACINTOSH"},
    {10007, "Cyrillic (Mac)", "MAC-CYRILLIC"},
    {20127, "US-ASCII", "US-ASCII"},
    {20866, "Cyrillic (KOI8-R)", "KOI8-R"},
    {21866, "Cyrillic (KOI8-U)", "KOI8-U"},
    {28591, "Western European (ISO)", "ISO-8859-1"},
    {28592, "Central European (ISO)", "ISO-8859-2"},
    {28593, "Latin 3 (ISO)", "ISO-8859-3"},
    {28594, "Baltic (ISO)", "ISO-8859-4"},
    {28595, "Cyrillic (ISO)", "ISO-8859-5"},
    {28596, "Arabic (ISO)", "ISO-8859-6"},
    {28597, "Greek (ISO)", "ISO-8859-7"},
    {28598, "Hebrew (ISO-Visual)", "ISO-8859-8"},
    {28599, "Turkish (ISO)", "ISO-8859-9"},
    {28603, "Estonian (ISO)", "ISO-8859-13"},
    {28605, "Latin 9 (ISO)", "ISO-8859-15"},
    {50220, "Japanese (JIS)", "ISO-2022-JP"},
    {50225, "Korean (ISO)", "ISO-2022-KR"},
    {51932, "Japanese (EUC)", "EUC-JP"},
    {51936, "Chinese Simplified (EUC)", "EUC-CN"},
    {51949, "Korean (EUC)", "EUC-KR"},
    {54936, "Chinese Simplified (GB18030)", "GB18030"},
    {65000, "Unicode (UTF-7)", "UTF-7"},
    {65001, "Unicode (UTF-8)", "UTF-8"},
};
} // namespace

std::span<const CodePages::TCodePage> CodePages::Known()
{
    return Table;
}

std::string_view CodePages::Name(int Number)
{
    if (Number == 0)
        return "System default";
    const auto* Found =
        std::find_if(std::begin(Table), std::end(Table), [=](const TCodePage& Row) { return Row.Number == Number; });
    return Found == std::end(Table) ? "Unknown code page" : Found->Name;
}
