#include "package/sourceupdate/QXAssemblyInfoLanguage.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace
{
struct TExtension
{
    std::string_view FileExt;
    TQXAssemblyInfoLanguage Language;
    std::string_view EndWord = {};
};
constexpr TExtension Extensions[] = {
    {".pas", TQXAssemblyInfoLanguage::alPascal, "implementation"},
    {".dpr", TQXAssemblyInfoLanguage::alPascal, "begin"},
    {".dpk", TQXAssemblyInfoLanguage::alPascal, "end."},
    {".cs", TQXAssemblyInfoLanguage::alCSharp},
    {".vb", TQXAssemblyInfoLanguage::alVB},
    {".cpp", TQXAssemblyInfoLanguage::alCPP},
};
constexpr TExtension Other = {"", TQXAssemblyInfoLanguage::alOther};

/// In the order of the languages.
constexpr TAssemblyInfoForm Forms[] = {
    {'\'', "[", "assembly:", "]", "{$REGION 'Program/Assembly Information Added By Quexley'}", "{$ENDREGION}"},
    {'"', "[", "assembly:", "]", "#region Assembly Information Added By Quexley", "#endregion"},
    {'"', "<", "Assembly:", ">", "#region \"Assembly Information Added By Quexley\"", "#end region"},
    {'"', "[", "assembly:", "];", "// Assembly Information Added By Quexley",
     "// End Assembly Information Added By Quexley"},
    {'"', "/** ", "@assembly", " */", "", ""},
};

const TExtension& Find(std::string_view FileExt)
{
    const auto* Found = std::find_if(std::begin(Extensions), std::end(Extensions),
                                     [FileExt](const TExtension& Item) { return Item.FileExt == FileExt; });
    return Found == std::end(Extensions) ? Other : *Found;
}
} // namespace

TQXAssemblyInfoLanguage AssemblyInfoLanguage(std::string_view FileExt)
{
    return Find(FileExt).Language;
}

const TAssemblyInfoForm& AssemblyInfoForm(TQXAssemblyInfoLanguage Language)
{
    return Forms[static_cast<std::size_t>(Language)];
}

std::string_view AssemblyInfoEndWord(std::string_view FileExt)
{
    return Find(FileExt).EndWord;
}
