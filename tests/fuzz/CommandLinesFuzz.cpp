#include "platform/CommandLines.h"
#include "tests/fuzz/FuzzTarget.h"

using Fuzz::Require;

namespace
{
/// Whatever was split is quoted so that it is split the same, and any text can be one argument.
void Check(std::string_view Input)
{
    const std::vector<std::string> Arguments = CommandLines::Split(Input);
    for (const bool Always : {false, true})
    {
        std::string Line;
        for (const std::string& Argument : Arguments)
            Line += CommandLines::Quote(Argument, Always) + (Always ? "\t" : " ");
        Require(CommandLines::Split(Line) == Arguments, "what is quoted is split as it was");
        Require(CommandLines::Split(CommandLines::Quote(Input, Always)) == std::vector{std::string(Input)},
                "a quoted text is one argument");
    }
}
const TFuzzTarget Target("commandlines", Check);
} // namespace
