#include "apps/quexley/help/HelpPage.h"
#include "platform/Text.h"
#include "platform/TextWidth.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr std::size_t Indent = 2;
constexpr std::size_t CodeIndent = 4;
constexpr std::size_t MeaningIndent = 6;

/// Text in lines, all but the first behind Margin blanks; the first goes on behind First.
std::string Wrapped(std::string_view Text, std::string First, std::size_t Margin, std::size_t Width)
{
    std::string Result;
    std::string Line = std::move(First);
    bool IsEmpty = true;
    while (!Text.empty())
    {
        const std::size_t End = std::min(Text.find(' '), Text.size());
        const std::string_view Word = Text.substr(0, End);
        Text.remove_prefix(std::min(End + 1, Text.size()));
        if (!IsEmpty && Texts::Width(Line) + 1 + Texts::Width(Word) > Width)
        {
            Result += Line + '\n';
            Line.assign(Margin, ' ');
            IsEmpty = true;
        }
        Line.append(IsEmpty ? "" : " ").append(Word);
        IsEmpty = false;
    }
    return Result + Line + '\n';
}

std::string Indented(std::string_view Code)
{
    std::string Result;
    for (std::size_t Place = 0; Place < Code.size();)
    {
        const std::string_view Line = Code.substr(Place, Code.find('\n', Place) - Place);
        Result += (Line.empty() ? "" : std::string(CodeIndent, ' ').append(Line)) + '\n';
        Place += Line.size() + 1;
    }
    return Result;
}

std::string BlockAsText(const THelpBlock& Block, std::size_t Width)
{
    const std::string Margin(Indent, ' ');
    const std::string Text = Texts::Replace(Block.Text, "`", "");
    switch (Block.Kind)
    {
    case THelpKind::Title:
    case THelpKind::Heading:
        return Block.Text + '\n';
    case THelpKind::Paragraph:
        return Wrapped(Text, Margin, Indent, Width);
    case THelpKind::Item:
        return Wrapped(Text, Margin + "- ", Indent + 2, Width);
    case THelpKind::Term:
        return Wrapped(Block.Term + (Block.Note.empty() ? "" : " (" + Block.Note + ')'), Margin, MeaningIndent, Width) +
               Wrapped(Text, std::string(MeaningIndent, ' '), MeaningIndent, Width);
    case THelpKind::Code:
        return Indented(Block.Text);
    }
    return {};
}

/// Items, and terms, stand close together, and text stands close below its heading.
bool IsApart(const THelpBlock& Block, const THelpBlock& Before)
{
    if (Before.Kind == THelpKind::Heading)
        return false;
    return Block.Kind != Before.Kind || (Block.Kind != THelpKind::Item && Block.Kind != THelpKind::Term);
}
} // namespace

std::string HelpAsText(const THelpPage& Page, std::size_t Width)
{
    std::string Result;
    const THelpBlock* Before = nullptr;
    for (const THelpBlock& Block : Page)
    {
        if (Before && IsApart(Block, *Before))
            Result += '\n';
        Result += BlockAsText(Block, Width);
        Before = &Block;
    }
    return Result;
}
