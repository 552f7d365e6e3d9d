#pragma once

#include <stdexcept>
#include <string>

/// A file of the host's (project, options, registry) that cannot be read or is wrong. The message is
/// complete: one line `FILE:LINE:COLUMN: message` for each finding, or `FILE: reason`.
class EHostFileError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The program was asked for something that does not exist: an action, a class, an option.
class EUsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
