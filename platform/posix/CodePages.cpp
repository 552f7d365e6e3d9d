#include "platform/CodePages.h"

#include <cerrno>
#include <iconv.h>
#include <stdexcept>
#include <system_error>

namespace
{
bool CanConvert(const char* Encoding)
{
    // What iconv_open gives when it fails.
    static const auto Failed = reinterpret_cast<iconv_t>(-1);
    const iconv_t Converter = iconv_open("UTF-8", Encoding);
    if (Converter != Failed)
        return iconv_close(Converter) == 0;
    if (errno != EINVAL)
        throw std::runtime_error(std::generic_category().message(errno));
    return false;
}
} // namespace

std::vector<int> CodePages::Supported()
{
    std::vector<int> Result;
    for (const TCodePage& Page : Known())
        if (CanConvert(Page.Encoding))
            Result.push_back(Page.Number);
    return Result;
}
