#include "package/pages/QXPageTable.h"

#include "package/pages/QXDotNetOptionsFrame.h"
#include "package/pages/QXGACInstallFrame.h"
#include "package/pages/QXGACListFrame.h"
#include "package/pages/QXGACUninstallFrame.h"

#include <array>

namespace
{
/// A class with its pages; the list ends before the first that is empty.
struct TRow
{
    const char* ClassName;
    std::array<TQXPageClass, 5> Pages;
};

#define QX_PAGE(Class) QXPageClass<Class>(#Class)

// In the order in which the classes are registered.
// clang-format off
constexpr TRow Rows[] = {
    {"TQXDotNetOptions", {QX_PAGE(TDotNetOptionsFrame)}},
    {"TGACInstallAction", {QX_PAGE(TGACInstallFrame)}},
    {"TGACUninstallAction", {QX_PAGE(TGACUninstallFrame)}},
    {"TGACListAction", {QX_PAGE(TGACListFrame)}},
};
// clang-format on
#undef QX_PAGE
} // namespace

std::span<const TQXPageClass> PagesOf(std::string_view ClassName)
{
    for (const TRow& Row : Rows)
        if (Row.ClassName == ClassName)
        {
            std::size_t Count = 0;
            while (Count < Row.Pages.size() && Row.Pages[Count].Create)
                ++Count;
            return std::span(Row.Pages).first(Count);
        }
    return {};
}
