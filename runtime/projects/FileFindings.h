// What is wrong in a file of the host's, with places and hints.
#pragma once

#include "runtime/HostErrors.h"
#include "runtime/projects/TomlDocument.h"

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Collects the findings of one file.
class TFileFindings
{
public:
    /// File as the user named it.
    explicit TFileFindings(std::string File) : FFile(std::move(File)) {}

    void Add(TTomlPosition Position, std::string Message);
    /// Adds that a value is of another type than the key Name wants; Expected as in "a string".
    void AddWrongType(const TTomlNode& Value, std::string_view Name, std::string_view Expected);
    /// All findings in the order of the file.
    [[nodiscard]] std::vector<THostFinding> Sorted() const;
    /// Throws EHostFileError with them.
    void ThrowIfAny() const;

private:
    std::string FFile;
    std::vector<std::pair<TTomlPosition, std::string>> FFindings;
};

/// A finding whose message is one line, whatever it quotes.
[[nodiscard]] THostFinding MakeFinding(std::string File, TTomlPosition Position, std::string_view Message);

/// "A", "B", "C"
[[nodiscard]] std::string QuotedNames(std::span<const std::string_view> Names);
