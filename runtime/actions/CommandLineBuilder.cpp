#include "host/QXCommandLineBuilder.h"

#include "platform/CommandLines.h"

#include <deque>

namespace
{
/// What the quotes of a text do when a tool splits its command line.
struct TQuotes
{
    bool Any = false;          ///< there is one without a backslash that takes its meaning away
    bool Open = false;         ///< the last such one opens
    bool BlankOutside = false; ///< a blank outside of quotes parts the text
};

TQuotes Examine(std::string_view Text)
{
    TQuotes Result;
    std::size_t Backslashes = 0;
    for (const char Character : Text)
    {
        if (Character == '"')
        {
            Result.Any = Result.Any || Backslashes % 2 == 0;
            Result.Open = Result.Open != (Backslashes % 2 == 0);
        }
        else if ((Character == ' ' || Character == '\t') && !Result.Open)
            Result.BlankOutside = true;
        Backslashes = Character == '\\' ? Backslashes + 1 : 0;
    }
    return Result;
}

bool HasBlank(std::string_view Text)
{
    return Text.find_first_of(" \t") != std::string_view::npos;
}

/// A text that its caller put into quotes without a thought for the backslash in front of the closing one, as
/// "C:\My Files\": the tool must not take that quote for a part of the text.
std::string CloseQuotes(std::string_view Text)
{
    std::string Result(Text);
    if (Result.size() < 3 || Result.front() != '"' || Result.back() != '"')
        return Result;
    const std::size_t Last = Result.find_last_not_of('\\', Result.size() - 2);
    const std::size_t Backslashes = Result.size() - 2 - Last;
    if (Backslashes % 2 == 1)
        Result.insert(Result.size() - 1, Backslashes, '\\');
    return Result;
}

bool IsQuotedByCaller(std::string_view Text)
{
    const TQuotes Quotes = Examine(Text);
    if (!Quotes.Any || Quotes.Open)
        return false;
    return !Quotes.BlankOutside || (Text.front() == '"' && Text.back() == '"');
}

std::string Prepare(std::string_view Value, TQXArgumentMode Mode)
{
    if (Mode == amPlain)
        return std::string(Value);
    if (std::string Closed = CloseQuotes(Value); IsQuotedByCaller(Closed))
        return Closed;
    if (Mode == amNormal && !HasBlank(Value) && Value.find('"') == std::string_view::npos)
        return std::string(Value);
    return CommandLines::Quote(Value, true);
}

class TArgument final : public IArgument
{
public:
    explicit TArgument(std::string Text) : FText(std::move(Text)) {}
    const std::string& GetText() const override { return FText; }

private:
    std::string FText;
};

class TCommandLineBuilder final : public ICommandLineBuilder
{
public:
    void SetSwitchSeparator(std::string_view Text) override { FSwitchSeparator = Text; }
    void SetArgumentSeparator(std::string_view Text) override { FArgumentSeparator = Text; }

    const IArgument& AddArgument(std::string_view Switch, std::string_view Value, TQXArgumentMode Mode) override
    {
        std::string Text(Switch);
        if (!Switch.empty() && !Value.empty())
            Text += FSwitchSeparator;
        if (!Value.empty())
            Text += Prepare(Value, Mode);
        return FArguments.emplace_back(std::move(Text));
    }

    std::string GetCommandLineText() const override
    {
        std::string Text;
        for (const TArgument& Argument : FArguments)
        {
            if (!Text.empty() && !Argument.GetText().empty())
                Text += FArgumentSeparator;
            Text += Argument.GetText();
        }
        return Text;
    }

private:
    std::string FSwitchSeparator = " ";
    std::string FArgumentSeparator = " ";
    std::deque<TArgument> FArguments; // keeps what AddArgument gave its callers in place
};
} // namespace

std::unique_ptr<ICommandLineBuilder> CreateCommandLineBuilder()
{
    return std::make_unique<TCommandLineBuilder>();
}

void QXAddFreeText(ICommandLineBuilder& Builder, std::string_view Text)
{
    if (const std::string Line = CommandLines::JoinLines(Text); !Line.empty())
        Builder.AddArgument(Line);
}
