#include "runtime/log/SecretMask.h"

#include "platform/CommandLines.h"
#include "platform/Text.h"

#include <algorithm>

void TSecretMask::Add(std::string_view Value)
{
    AddForms(Value);
    while (!Value.empty())
    {
        const std::size_t End = std::min(Value.find_first_of("\r\n"), Value.size());
        AddForms(Value.substr(0, End));
        Value.remove_prefix(std::min(End + 1, Value.size()));
    }
}

/// A command line shows a secret with the backslashes that bring its quotes to the tool.
void TSecretMask::AddForms(std::string_view Secret)
{
    AddText(Secret);
    if (Secret.find('"') == std::string_view::npos)
        return;
    const std::string Quoted = CommandLines::Quote(Secret, true);
    AddText(std::string_view(Quoted).substr(1, Quoted.size() - 2));
}

void TSecretMask::AddText(std::string_view Secret)
{
    if (Text::Trim(Secret).empty() || std::find(FSecrets.begin(), FSecrets.end(), Secret) != FSecrets.end())
        return;
    const auto Place = std::find_if(FSecrets.begin(), FSecrets.end(),
                                    [&](const std::string& Other) { return Other.size() < Secret.size(); });
    FSecrets.emplace(Place, Secret);
}

std::string_view TSecretMask::Apply(std::string_view Text, std::string& Buffer) const
{
    for (const std::string& Secret : FSecrets)
        if (Text.find(Secret) != std::string_view::npos)
        {
            Buffer = Text::Replace(Text, Secret, "***");
            Text = Buffer;
        }
    return Text;
}
