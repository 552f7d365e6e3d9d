#include "platform/Text.h"
#include "runtime/Variables.h"
#include "tests/fuzz/FuzzTarget.h"

#include <algorithm>

using Fuzz::Require;

namespace
{
/// The first line is the expression, the others are variables, NAME=VALUE.
void Check(std::string_view Input)
{
    TVariables::TPairs Pairs;
    const std::string_view Expression = Input.substr(0, Input.find('\n'));
    for (std::string_view Rest = Input.substr(Expression.size()); !Rest.empty();)
    {
        Rest.remove_prefix(1);
        const std::string_view Line = Rest.substr(0, Rest.find('\n'));
        const std::size_t Equals = std::min(Line.find('='), Line.size());
        Pairs.emplace_back(Line.substr(0, Equals), Line.substr(std::min(Equals + 1, Line.size())));
        Rest.remove_prefix(Line.size());
    }
    TVariables Variables;
    Variables.SetProjectVariables(Pairs);
    Require(Variables.Expand(Texts::Replace(Input, "%", "%%")).Text == Input, "doubled percent signs are plain ones");

    const TExpansion Direct = Variables.Expand(Expression);
    Require(Direct.Succeeded == Direct.Reason.empty(), "a failure has a reason");
    Variables.SetOverrides({{"Fuzz.Expression", std::string(Expression)}});
    const TExpansion Through = Variables.Expand("%FUZZ.expression%");
    const bool IsUsed = Texts::Lower(Input).find("fuzz.expression") != std::string::npos;
    const bool IsLong = Direct.Reason.find("16 MiB") != std::string::npos || Direct.Text.size() > 1'000'000;
    Require(IsUsed || IsLong || (Through.Succeeded == Direct.Succeeded && Through.Text == Direct.Text),
            "an expression gives the same by way of a variable");
}
const TFuzzTarget Target("variables", Check);
} // namespace
