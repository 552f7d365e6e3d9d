#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

/// What may name a variable: the rule for schemas, for people and as it is asked.
constexpr std::string_view VariableNamePattern = "^[A-Za-z_][A-Za-z0-9_.]*$";
constexpr std::string_view VariableNameRule =
    "a name is a letter or \"_\", followed by letters, digits, \"_\" and \".\"";
[[nodiscard]] bool IsVariableName(std::string_view Name);

/// What became of an expression: its text, or why there is none.
struct TExpansion
{
    bool Succeeded = false;
    std::string Text;
    std::string Reason; ///< names the variable
};

/// What becomes of a variable that no one defines.
enum class TUnknownVariables { AreErrors, AreEmpty };

/// The names of the variables that a text uses.
[[nodiscard]] std::vector<std::string_view> VariablesIn(std::string_view Text);

/// The variables of a run and the expansion of `%Name%`. Looked up in this order: overrides of the command line,
/// the project's variables, the host's own, the environment. Names ignore case; of a name that one source gives
/// twice the last value counts. Overrides and project variables may use variables; the host's own and the
/// environment are taken as they stand.
class TVariables
{
public:
    using TPairs = std::vector<std::pair<std::string, std::string>>;

    void SetOverrides(const TPairs& Pairs) { FOverrides = Index(Pairs); }
    void SetProjectVariables(const TPairs& Pairs) { FProject = Index(Pairs); }
    /// ProjectDir, ProjectFile, ProjectName.
    void SetHostVariables(const TPairs& Pairs) { FHost = Index(Pairs); }

    /// Replaces the variables of Text, those in their values included. Variables that bring more than 16 MiB are a
    /// failure.
    [[nodiscard]] TExpansion Expand(std::string_view Text,
                                    TUnknownVariables Unknown = TUnknownVariables::AreErrors) const;

    /// A variable's value as its source holds it.
    struct TValue
    {
        bool Found = false;
        bool IsLiteral = false;    ///< holds no variables
        std::string_view Text;     ///< of a source of ours
        std::string OfEnvironment; ///< in place of Text
    };
    [[nodiscard]] TValue Find(std::string_view Name) const;

private:
    using TMap = std::unordered_map<std::string, std::string>; // by the name in lower case
    static TMap Index(const TPairs& Pairs);

    TMap FOverrides;
    TMap FProject;
    TMap FHost;
};
