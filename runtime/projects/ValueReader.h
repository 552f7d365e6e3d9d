// Typed values of the host's TOML files, with a finding for each that is not as it should be.
#pragma once

#include "host/QXProperties.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/projects/TomlDocument.h"

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
    /// Any of the names.
    [[nodiscard]] std::optional<std::vector<std::string>> Elements(const TTomlEntry& Entry,
                                                                   std::span<const std::string_view> Names);
    /// A table, or null.
    [[nodiscard]] const TTomlNode* Table(const TTomlEntry& Entry);
    /// The value of a property.
    [[nodiscard]] std::optional<TQXPropertyValue> Property(const TTomlEntry& Entry, const TQXProperty& Property);

private:
    [[nodiscard]] bool Has(TTomlKind Kind, const TTomlEntry& Entry, std::string_view Expected);
    [[nodiscard]] bool IsElement(const TTomlNode& Value, std::string_view Key, std::span<const std::string_view> Names);
    [[nodiscard]] std::optional<std::vector<std::string>> Items(const TTomlEntry& Entry, std::string_view Expected);

    TFileFindings& FFindings;
};
