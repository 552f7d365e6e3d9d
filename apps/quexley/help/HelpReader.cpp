#include "apps/quexley/help/HelpPage.h"
#include "platform/Text.h"

#include <utility>

namespace
{
/// Takes the lines of a part one by one.
class THelpReader
{
public:
    void Take(std::string_view Line)
    {
        if (FInCode || Line.starts_with(Fence))
            TakeCode(Line);
        else
            TakeText(Texts::Trim(Line));
    }
    THelpPage Page() { return std::move(FPage); }

private:
    static constexpr std::string_view Fence = "```";
    static constexpr std::string_view Heading = "## ";
    static constexpr std::string_view Item = "- ";

    void Open(THelpKind Kind, std::string_view Text)
    {
        FPage.push_back({Kind, std::string(Text)});
        FIsOpen = true;
    }

    void TakeCode(std::string_view Line)
    {
        if (!Line.starts_with(Fence))
            FPage.back().Text.append(Line).append("\n");
        else if (FInCode = !FInCode; FInCode)
            Open(THelpKind::Code, "");
        else
            FIsOpen = false;
    }

    void TakeText(std::string_view Line)
    {
        if (Line.starts_with(Heading))
            Open(THelpKind::Heading, Line.substr(Heading.size()));
        else if (Line.starts_with(Item))
            Open(THelpKind::Item, Line.substr(Item.size()));
        else if (!Line.empty() && FIsOpen)
            FPage.back().Text.append(" ").append(Line);
        else if (!Line.empty())
            Open(THelpKind::Paragraph, Line);
        // Behind a heading there is text of its own.
        if (Line.empty() || Line.starts_with(Heading))
            FIsOpen = false;
    }

    THelpPage FPage;
    bool FIsOpen = false; ///< the next line goes on with the last block
    bool FInCode = false;
};
} // namespace

THelpPage ParseHelp(std::string_view Written)
{
    THelpReader Reader;
    while (!Written.empty())
    {
        const std::size_t End = Written.find('\n');
        const std::string_view Line = Written.substr(0, End);
        Reader.Take(Line.ends_with('\r') ? Line.substr(0, Line.size() - 1) : Line);
        Written.remove_prefix(End == std::string_view::npos ? Written.size() : End + 1);
    }
    return Reader.Page();
}
