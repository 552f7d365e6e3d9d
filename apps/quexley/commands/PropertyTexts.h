#pragma once

#include "host/QXProperties.h"

#include <string>
#include <string_view>

/// What users call a type: "string", "string list".
[[nodiscard]] std::string_view PropertyTypeName(TQXPropertyType Type);
/// A value as text; the items of a set or list as comma text.
[[nodiscard]] std::string PropertyText(const TQXPropertyValue& Value);
/// The value that Text means for the property. Throws EUsageError, which calls the property Name.
[[nodiscard]] TQXPropertyValue ParsePropertyText(const TQXProperty& Property, std::string_view Name,
                                                 const std::string& Text);
/// An integer of the whole Text. Throws EUsageError.
[[nodiscard]] int ParseIntegerText(std::string_view Name, std::string_view Text);
