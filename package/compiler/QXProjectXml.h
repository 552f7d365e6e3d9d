// Reads values from project files.
#pragma once

#include "package/compiler/QXDotNetCompilerOptions.h"
#include "platform/Xml.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

/// Empty if the attribute is absent.
[[nodiscard]] std::string GetAttributeValueString(std::string_view Name, const TXmlElement& Element);
/// True for "TRUE" and "ON" in any case.
[[nodiscard]] bool GetAttributeValueBoolean(std::string_view Name, const TXmlElement& Element);
/// The path of a file in a Visual Studio project: its link's, if it is one.
[[nodiscard]] std::string GetProjectPath(const TXmlElement& File);
/// The value as a number of this base. Throws std::runtime_error for what is none.
[[nodiscard]] int GetAttributeValueNumber(std::string_view Name, const TXmlElement& Element, int Base);
/// The text of an option of a C# Builder project, empty if there is none.
[[nodiscard]] std::string GetOptionValueString(std::string_view Name, const TXmlElement& OptionsSet);
/// True for "TRUE" in any case; "ON" does not count here.
[[nodiscard]] bool GetOptionValueBoolean(std::string_view Name, const TXmlElement& OptionsSet);

/// Texts of a project file and what they stand for.
template <typename T> using TNamedValue = std::pair<std::string_view, T>;

/// The value that goes with exactly this text, else Default.
template <typename T, std::size_t N>
[[nodiscard]] T FindNamedValue(const TNamedValue<T> (&Table)[N], std::string_view Text, T Default)
{
    for (const TNamedValue<T>& Row : Table)
        if (Row.first == Text)
            return Row.second;
    return Default;
}

/// The warning level that a project names "1" to "4"; all else is off.
[[nodiscard]] TDotNetWarningLevels FindWarningLevel(std::string_view Text);
