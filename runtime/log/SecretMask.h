#pragma once

#include "runtime/log/TextFinder.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Texts that must not reach a log, in every form into which they are brought on their way there.
class TSecretMask
{
public:
    /// Adds a secret value: each of its lines, and the items of a line that is a list. Blank texts are no secrets.
    void Add(std::string_view Value);
    [[nodiscard]] bool IsEmpty() const { return FTexts.empty(); }
    /// Text with every secret replaced by "***"; Buffer holds the result if it differs.
    [[nodiscard]] std::string_view Apply(std::string_view Text, std::string& Buffer) const;
    /// Where a text that goes on may be cut so that no secret is cut in two: Length, or a place before it.
    [[nodiscard]] std::size_t PlaceToCut(std::string_view Text, std::size_t Length) const;

private:
    void AddLine(std::string_view Line);
    void AddForms(std::string_view Secret);
    void AddEncodings(const std::string& Secret);
    [[nodiscard]] const TTextFinder& Finder() const;

    std::vector<std::string> FTexts;
    mutable std::optional<TTextFinder> FFinder; // made when it is first needed
};
