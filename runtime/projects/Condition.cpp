#include "runtime/projects/Condition.h"

#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>

namespace
{
constexpr std::string_view Blanks = " \t\r\n";
/// Parentheses cost the program's stack.
constexpr int DeepestNesting = 200;

bool IsTrue(std::string_view Text)
{
    constexpr std::array<std::string_view, 4> No{"", "0", "false", "no"};
    return std::none_of(No.begin(), No.end(), [&](std::string_view Word) { return Texts::Same(Text, Word); });
}

class TConditionReader
{
public:
    TConditionReader(std::string_view Text, const TTextExpander& Expand) : FText(Text), FExpand(Expand) {}

    bool Read()
    {
        const bool Result = ReadOr();
        if (!Rest().empty())
            Fail(fmt::format("\"and\", \"or\" or the end is expected, not {}", Next()));
        return Result;
    }

private:
    bool ReadOr()
    {
        bool Result = ReadAnd();
        while (TakeWord("or"))
            Result |= ReadAnd();
        return Result;
    }

    bool ReadAnd()
    {
        bool Result = ReadNot();
        while (TakeWord("and"))
            Result &= ReadNot();
        return Result;
    }

    bool ReadNot()
    {
        bool IsTurned = false;
        while (TakeWord("not"))
            IsTurned = !IsTurned;
        return ReadTest() != IsTurned;
    }

    bool ReadTest()
    {
        if (Take("("))
            return ReadNested();
        const std::string Left = ReadText();
        if (Take("=="))
            return Left == ReadText();
        if (Take("!="))
            return Left != ReadText();
        return IsTrue(Left);
    }

    bool ReadNested()
    {
        if (++FDepth > DeepestNesting)
            Fail("the parentheses nest too deep");
        const bool Result = ReadOr();
        if (!Take(")"))
            Fail(fmt::format("\")\" is expected, not {}", Next()));
        --FDepth;
        return Result;
    }

    std::string ReadText()
    {
        const std::string_view Text = Rest().starts_with('"') ? QuotedText() : BareText();
        return FExpand(Text);
    }

    std::string_view QuotedText()
    {
        const std::size_t End = FText.find('"', FOffset + 1);
        if (End == std::string_view::npos)
            Fail("the double quote is not closed");
        const std::string_view Text = FText.substr(FOffset + 1, End - FOffset - 1);
        FOffset = End + 1;
        return Text;
    }

    std::string_view BareText()
    {
        const std::string_view Text = Word();
        if (Text.empty() || IsKeyword(Text))
            Fail(fmt::format("a text is expected, not {}", Next()));
        FOffset += Text.size();
        return Text;
    }

    static bool IsKeyword(std::string_view Word) { return Word == "and" || Word == "or" || Word == "not"; }

    /// What is left, from the next character on that is no blank.
    std::string_view Rest()
    {
        FOffset = std::min(FText.find_first_not_of(Blanks, FOffset), FText.size());
        return FText.substr(FOffset);
    }

    /// The text without quotes that stands next, perhaps none.
    std::string_view Word()
    {
        const std::string_view Text = Rest();
        std::size_t End = std::min(Text.find_first_of(" \t\r\n()\""), Text.size());
        for (const std::string_view Operator : {"==", "!="})
            End = std::min(End, Text.find(Operator));
        return Text.substr(0, End);
    }

    bool TakeWord(std::string_view Keyword) { return Word() == Keyword && Take(Keyword); }

    bool Take(std::string_view Sign)
    {
        const bool IsNext = Rest().starts_with(Sign);
        if (IsNext)
            FOffset += Sign.size();
        return IsNext;
    }

    /// What stands next, for messages.
    std::string Next()
    {
        const std::string_view Text = Rest();
        if (Text.empty())
            return "the end";
        std::string_view Sign = Word();
        if (Sign.empty())
            Sign = Text.substr(0, Text.front() == '=' || Text.front() == '!' ? 2 : 1);
        return fmt::format("\"{}\"", Sign);
    }

    [[noreturn]] void Fail(const std::string& Message) const { throw EConditionError(FOffset, Message); }

    std::string_view FText;
    const TTextExpander& FExpand;
    std::size_t FOffset = 0;
    int FDepth = 0;
};
} // namespace

bool ConditionHolds(std::string_view Condition, const TTextExpander& Expand)
{
    return TConditionReader(Condition, Expand).Read();
}

void CheckCondition(std::string_view Condition)
{
    static_cast<void>(ConditionHolds(Condition, [](std::string_view Text) { return std::string(Text); }));
}
