#pragma once

#include <string>
#include <string_view>

/// The culture that the name of a file has before its extension, in the spelling in which programs look for it: "de-DE"
/// for Form1.de-de.resx; empty if what stands there is none that the IDE knows.
[[nodiscard]] std::string CultureOf(std::string_view FileName);
