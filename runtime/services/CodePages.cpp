#include "host/QXCodePages.h"

#include "platform/CodePages.h"

std::string CodePageToString(int CodePage)
{
    return std::string(CodePages::Name(CodePage));
}

std::vector<int> QXSupportedCodePages()
{
    return CodePages::Supported();
}
