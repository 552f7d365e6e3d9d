// The test of an action's `when`.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

/// A test that cannot be read, and the byte of it at which that shows.
class EConditionError : public std::runtime_error
{
public:
    EConditionError(std::size_t AOffset, const std::string& Message) : std::runtime_error(Message), Offset(AOffset) {}
    std::size_t Offset;
};

/// What a text of a test comes to.
using TTextExpander = std::function<std::string(std::string_view Text)>;

/// Whether a test holds: texts are compared by `==` and `!=`, or tested alone, and joined by `not`, `and`, `or` and
/// parentheses. Every text of it is expanded, whatever the others say. Throws EConditionError.
[[nodiscard]] bool ConditionHolds(std::string_view Condition, const TTextExpander& Expand);
/// Throws EConditionError for a test that cannot be read.
void CheckCondition(std::string_view Condition);
