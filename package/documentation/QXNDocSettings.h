// The settings of NDoc's documenters.
#pragma once

#include "host/QXStringList.h"

#include <array>
#include <string_view>

enum TDocumenter {
    docDefault,
    docHtmlHelp2,
    docJavaDoc,
    docLaTeX,
    docLinearHtml,
    docMSDN,
    docMSDN2003,
    docXML,
    docVSDotNet2003
};
constexpr auto QXElements(TDocumenter)
{
    return std::array<std::string_view, 9>{"docDefault",  "docHtmlHelp2",  "docJavaDoc",
                                           "docLaTeX",    "docLinearHtml", "docMSDN",
                                           "docMSDN2003", "docXML",        "docVSDotNet2003"};
}

/// Adds a line NAME= for every setting of the documenter that the list lacks, names compared ignoring case. What the
/// list holds stays as it is.
void CompleteNDocSettings(TDocumenter Documenter, TStringList& Settings);
