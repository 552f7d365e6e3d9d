#pragma once

#include <string_view>

/// The languages whose declarations an updater knows; all others are treated as J# is.
enum class TQXAssemblyInfoLanguage { alPascal, alCSharp, alVB, alCPP, alOther };

/// How declarations look where no file has shown it yet, and the lines around those that are added.
struct TAssemblyInfoForm
{
    char QuoteChar;
    std::string_view Open;
    std::string_view Prefix;
    std::string_view Close; ///< behind the closing parenthesis
    std::string_view BlockOpen;
    std::string_view BlockClose;
};

/// By the extension, in lower case with its dot.
[[nodiscard]] TQXAssemblyInfoLanguage AssemblyInfoLanguage(std::string_view FileExt);
[[nodiscard]] const TAssemblyInfoForm& AssemblyInfoForm(TQXAssemblyInfoLanguage Language);
/// The line at which the scan of a file with this extension ends; empty: it does not end early.
[[nodiscard]] std::string_view AssemblyInfoEndWord(std::string_view FileExt);
