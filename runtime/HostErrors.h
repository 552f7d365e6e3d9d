#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

/// What is wrong with the host's own affairs, and where as far as that is known: File may be empty, Line and Column 0.
struct THostFinding
{
    std::string File{};
    int Line = 0;
    int Column = 0;
    std::string Message{};

    /// `FILE:LINE:COLUMN: message`, without what is not known.
    [[nodiscard]] std::string Text() const;
};

/// A file of the host's (project, options, registry) that cannot be read or is wrong. The message has a line for each
/// finding.
class EHostFileError : public std::runtime_error
{
public:
    explicit EHostFileError(std::vector<THostFinding> Findings);
    explicit EHostFileError(THostFinding Finding) : EHostFileError(std::vector{std::move(Finding)}) {}
    [[nodiscard]] const std::vector<THostFinding>& Findings() const { return *FFindings; }

private:
    std::shared_ptr<const std::vector<THostFinding>> FFindings; // copies of an exception must not fail
};

/// The program was asked for something that does not exist: an action, a class, an option.
class EUsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
