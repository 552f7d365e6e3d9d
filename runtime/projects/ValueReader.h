// Typed values of the host's TOML files, with a finding for each that is not as it should be.
#pragma once

#include "runtime/projects/FileFindings.h"
#include "runtime/projects/TomlDocument.h"
#include "runtime/properties/ValueCheck.h"

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reads the values of entries. Each operation gives none after it has added a finding.
class TValueReader
{
public:
    explicit TValueReader(TFileFindings& Findings) : FFindings(Findings) {}

    [[nodiscard]] std::optional<std::string> String(const TTomlEntry& Entry);
    [[nodiscard]] std::optional<bool> Boolean(const TTomlEntry& Entry);
    /// A whole number from Minimum to what 32 bits hold.
    [[nodiscard]] std::optional<int> Integer(const TTomlEntry& Entry, int Minimum = std::numeric_limits<int>::min());
    /// One of the names, exactly.
    [[nodiscard]] std::optional<std::string> Element(const TTomlEntry& Entry, std::span<const std::string_view> Names);
    [[nodiscard]] std::optional<std::vector<std::string>> Strings(const TTomlEntry& Entry);
    /// A table, or null.
    [[nodiscard]] const TTomlNode* Table(const TTomlEntry& Entry);
    /// The value of a property.
    [[nodiscard]] std::optional<TQXPropertyValue> Property(const TTomlEntry& Entry, const TQXProperty& Property);

private:
    /// Asks the check for the entry's value and adds what it says against it.
    template <typename T> auto Checked(const TTomlEntry& Entry, T Ask);

    TFileFindings& FFindings;
};

/// A value as the file gives it.
[[nodiscard]] TGivenValue GivenToml(const TTomlNode& Value);
