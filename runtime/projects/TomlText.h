// Values and keys as TOML, in the form that a person would choose.
#pragma once

#include "host/QXProperties.h"

#include <span>
#include <string>
#include <string_view>

namespace TomlText
{
/// A key: bare if it can be, else quoted.
[[nodiscard]] std::string Key(std::string_view Name);
/// A text on one line: literal if it has backslashes or double quotes and can be, else with escapes.
[[nodiscard]] std::string String(std::string_view Text);
/// A text whose own lines stay lines.
[[nodiscard]] std::string Lines(std::string_view Text, std::string_view LineEnd);
[[nodiscard]] std::string Boolean(bool Value);
/// An array on one line.
[[nodiscard]] std::string Array(std::span<const std::string> Items);
/// An array with a line for each item; up to one item on one line.
[[nodiscard]] std::string List(std::span<const std::string> Items, std::string_view LineEnd);
/// The value of a property of this type.
[[nodiscard]] std::string Value(TQXPropertyType Type, const TQXPropertyValue& Value, std::string_view LineEnd);
} // namespace TomlText
