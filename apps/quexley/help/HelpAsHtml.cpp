#include "apps/quexley/help/HelpPage.h"
#include "platform/Text.h"

#include <fmt/format.h>

#include <algorithm>

namespace
{
std::string Escaped(std::string_view Text)
{
    std::string Result = Texts::Replace(Text, "&", "&amp;");
    Result = Texts::Replace(Result, "<", "&lt;");
    return Texts::Replace(Result, ">", "&gt;");
}

/// A line in which what stands between two "`" is code.
std::string Line(std::string_view Text)
{
    std::string Result;
    for (bool InCode = false; !Text.empty(); InCode = !InCode)
    {
        const std::size_t End = std::min(Text.find('`'), Text.size());
        const std::string Part = Escaped(Text.substr(0, End));
        Result += InCode ? "<code>" + Part + "</code>" : Part;
        Text.remove_prefix(std::min(End + 1, Text.size()));
    }
    return Result;
}

/// The element that encloses blocks of a kind which follow each other; empty if none does.
std::string_view Enclosing(THelpKind Kind)
{
    if (Kind == THelpKind::Item)
        return "ul";
    return Kind == THelpKind::Term ? "dl" : "";
}

std::string BlockAsHtml(const THelpBlock& Block)
{
    switch (Block.Kind)
    {
    case THelpKind::Title:
        return fmt::format("<h1>{}</h1>\n", Escaped(Block.Text));
    case THelpKind::Heading:
        return fmt::format("<h2>{}</h2>\n", Escaped(Block.Text));
    case THelpKind::Paragraph:
        return fmt::format("<p>{}</p>\n", Line(Block.Text));
    case THelpKind::Item:
        return fmt::format("<li>{}</li>\n", Line(Block.Text));
    case THelpKind::Term:
        return fmt::format("<dt><b>{}</b> <i>{}</i></dt>\n<dd>{}</dd>\n", Escaped(Block.Term), Escaped(Block.Note),
                           Line(Block.Text));
    case THelpKind::Code:
        return fmt::format("<pre>{}</pre>\n", Escaped(Block.Text));
    }
    return {};
}

constexpr std::string_view Head = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8"/>
<meta name="color-scheme" content="light dark"/>
<title>{}</title>
<style>h1 {{ font-size: large }} h2 {{ font-size: medium }} pre {{ margin-left: 16px; white-space: pre-wrap }}</style>
</head>
<body>
)";
} // namespace

std::string HelpAsHtml(const THelpPage& Page)
{
    std::string Result = fmt::format(Head, Page.empty() ? "" : Escaped(Page.front().Text));
    std::string_view Open;
    for (const THelpBlock& Block : Page)
    {
        const std::string_view Wanted = Enclosing(Block.Kind);
        if (Wanted != Open && !Open.empty())
            Result += fmt::format("</{}>\n", Open);
        if (Wanted != Open && !Wanted.empty())
            Result += fmt::format("<{}>\n", Wanted);
        Open = Wanted;
        Result += BlockAsHtml(Block);
    }
    return Result + (Open.empty() ? "" : fmt::format("</{}>\n", Open)) + "</body>\n</html>\n";
}
