#include "runtime/ActionTest.h"

#include "runtime/projects/Condition.h"

TActionTest TestAction(const std::string& When, const TVariables& Variables)
{
    TActionTest Test;
    if (When.empty())
        return Test;
    Test.Holds = ConditionHolds(When, [&](std::string_view Text) {
        TExpansion Expansion = Variables.Expand(Text, TUnknownVariables::AreEmpty);
        if (!Expansion.Succeeded && Test.Reason.empty())
        {
            Test.Text = Text;
            Test.Reason = Expansion.Reason;
        }
        return Expansion.Text;
    });
    return Test;
}
