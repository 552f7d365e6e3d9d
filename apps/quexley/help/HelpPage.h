// The help of a class: what is written by hand, and what its published properties and scripts tell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct TShownClass;

enum class THelpKind { Title, Heading, Paragraph, Item, Term, Code };

/// A piece of a page. Texts but that of code are one line, in which what stands between two "`" is code.
struct THelpBlock
{
    THelpKind Kind = THelpKind::Paragraph;
    std::string Text;
    std::string Term{}; ///< of a term: its name, which Text explains
    std::string Note{}; ///< of a term: what stands beside its name
};
using THelpPage = std::vector<THelpBlock>;

/// Reads a part that is written by hand: paragraphs, "## " headings, "- " items and code between lines of "```".
[[nodiscard]] THelpPage ParseHelp(std::string_view Written);

/// The page of a class: its title, what Written says before its first heading, properties and scripts, and the rest of
/// Written. Without one there is an example at least.
[[nodiscard]] THelpPage ComposeHelp(const TShownClass& Shown, THelpPage Written);

/// The page of a class with the part that is installed for it, in which a line "<!-- include FILE.md -->" stands for
/// that file of the folder `help`. Throws EFileError.
[[nodiscard]] THelpPage HelpOf(const TShownClass& Shown);

/// For a terminal: lines of at most so many columns, but for code.
[[nodiscard]] std::string HelpAsText(const THelpPage& Page, std::size_t Width);
/// For browsers, and for a text view that knows simple HTML; without colours, so that it suits light and dark ones. It
/// is well-formed XML, too.
[[nodiscard]] std::string HelpAsHtml(const THelpPage& Page);
