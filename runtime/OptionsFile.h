#pragma once

#include "host/QXOptions.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A .NET version that the options file names.
struct TConfiguredDotNet
{
    std::string Name;
    std::string Framework; ///< empty: not installed
    std::string SDK;
};

/// The settings of the host itself.
struct THostOptions
{
    std::string Registry;   ///< registry export file, empty: none
    std::string WindowsDir; ///< empty: none
    int ScriptTimeout = 10; ///< seconds
};

/// The file that stores options objects and the host's settings. A missing file is an empty one.
class TOptionsFile
{
public:
    TOptionsFile();
    ~TOptionsFile();
    TOptionsFile(TOptionsFile&&) noexcept;
    TOptionsFile& operator=(TOptionsFile&&) noexcept;

    /// Reads the file; MustExist: a missing one is an error. Throws EHostFileError.
    [[nodiscard]] static TOptionsFile Load(const std::string& FileName, bool MustExist);
    [[nodiscard]] static TOptionsFile Parse(const std::string& FileName, std::string_view Text);
    /// Where the file lies when the command line names none.
    [[nodiscard]] static std::string DefaultFileName();

    [[nodiscard]] const std::string& FileName() const;
    [[nodiscard]] const THostOptions& Host() const;
    /// Whether .NET versions are looked for besides the configured ones.
    [[nodiscard]] bool DetectDotNet() const;
    [[nodiscard]] const std::vector<TConfiguredDotNet>& DotNetVersions() const;

    /// A stored value of the table Key, none when nothing is stored.
    [[nodiscard]] std::optional<std::string> ReadString(std::string_view Key, std::string_view Name) const;
    [[nodiscard]] std::optional<int> ReadInteger(std::string_view Key, std::string_view Name) const;
    /// A key of the file with its place.
    struct TEntry
    {
        std::string_view Name;
        int Line = 0;
        int Column = 0;
        std::vector<TEntry> Settings{}; ///< of a table
    };
    /// The tables of options objects.
    [[nodiscard]] std::vector<TEntry> Tables() const;
    /// Stores a value; the rest of the text stays byte for byte.
    void WriteString(std::string_view Key, std::string_view Name, std::string_view Value);
    void WriteInteger(std::string_view Key, std::string_view Name, int Value);
    /// The stored value of a property of the table Key, under the name that its row gives; none when nothing is stored.
    /// Throws EHostFileError at the place of a value that the property cannot hold.
    [[nodiscard]] std::optional<TQXPropertyValue> Read(std::string_view Key, const TQXProperty& Property) const;
    void Write(std::string_view Key, const TQXProperty& Property, const TQXPropertyValue& Value);
    /// The text to be stored.
    [[nodiscard]] const std::string& Text() const;
    /// Writes the file, making its folder. Throws EFileError.
    void Save() const;

private:
    void Store(std::string_view Key, std::string_view Name, std::string Value);

    struct TImpl;
    std::unique_ptr<TImpl> FImpl;
};
