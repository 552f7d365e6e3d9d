// Properties from and to the texts that stand in data files.
#pragma once

#include "host/QXProperties.h"

#include <string>

/// Sets a persisted property: a set from its elements with "," between them, a string list grows by one line. False for
/// a property or a value that does not exist.
[[nodiscard]] bool SetProperty(const TQXPersistent& Object, const std::string& Name, const std::string& Value);
/// A value as one text, the elements of a set and the lines of a list with "|" between them.
[[nodiscard]] std::string ValueText(const TQXPropertyValue& Value);
