#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What became of an expression: its text, or why there is none.
struct TExpansion
{
    bool Succeeded = false;
    std::string Text;
    std::string Reason; ///< names the variable
};

/// The variables of a run and the expansion of `%Name%`. Looked up in this order: overrides of the command line,
/// the project's variables, the host's own, the environment. Names ignore case.
class TVariables
{
public:
    using TPairs = std::vector<std::pair<std::string, std::string>>;

    void SetOverrides(TPairs Pairs) { FOverrides = std::move(Pairs); }
    void SetProjectVariables(TPairs Pairs) { FProject = std::move(Pairs); }
    /// ProjectDir, ProjectFile, ProjectName: taken as they stand, without expansion.
    void SetHostVariables(TPairs Pairs) { FHost = std::move(Pairs); }

    /// Replaces the variables of Text, those in their values included.
    [[nodiscard]] TExpansion Expand(std::string_view Text) const;

private:
    TPairs FOverrides;
    TPairs FProject;
    TPairs FHost;
};
