#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Texts that must not reach a log.
class TSecretMask
{
public:
    /// Adds a secret value; of one with several lines each line by itself as well. Blank texts are no secrets.
    void Add(std::string_view Value);
    [[nodiscard]] bool IsEmpty() const { return FSecrets.empty(); }
    /// Text with every secret replaced by "***"; Buffer holds the result if it differs.
    [[nodiscard]] std::string_view Apply(std::string_view Text, std::string& Buffer) const;

private:
    void AddForms(std::string_view Secret);
    void AddText(std::string_view Secret);
    std::vector<std::string> FSecrets; // the longest first
};
