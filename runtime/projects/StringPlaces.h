// Where the characters of a TOML string stand in its text.
#pragma once

#include "runtime/projects/TomlDocument.h"

#include <cstddef>

/// The place of a byte of a string's value; the end of the string for one behind its last.
[[nodiscard]] TTomlPosition PlaceInString(const TTomlDocument& Document, const TTomlNode& String, std::size_t Offset);
/// The place at which a line of a string's value, counted from 1, begins.
[[nodiscard]] TTomlPosition PlaceOfLine(const TTomlDocument& Document, const TTomlNode& String, std::size_t Line);
