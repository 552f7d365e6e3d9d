// Values from outside on their way to the host: what does not fit gets the same text wherever it came from.
#pragma once

#include "host/QXProperties.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// A value as a file, a script or a command line gives it.
struct TGivenValue
{
    using TItems = std::vector<TGivenValue>;

    std::string Kind; ///< for messages: "a string", "null"
    /// Nothing for a kind of value that no property can hold.
    std::variant<std::monostate, bool, std::int64_t, std::string, TItems> Value{};
};

/// Why a value does not fit.
struct TValueError
{
    std::string Text;
    std::optional<std::size_t> Item{}; ///< the item of an array whose fault it is
    bool IsOutOfRange = false;
};

/// Converts given values to what something of the name Name expects. Each operation gives none after it has added
/// an error.
class TValueCheck
{
public:
    explicit TValueCheck(std::string_view Name) : FName(Name) {}

    [[nodiscard]] std::optional<std::string> Text(TGivenValue Given);
    [[nodiscard]] std::optional<bool> Boolean(const TGivenValue& Given);
    /// A whole number from Minimum to what 32 bits hold.
    [[nodiscard]] std::optional<int> Integer(const TGivenValue& Given, int Minimum = std::numeric_limits<int>::min());
    /// One of the names, exactly.
    [[nodiscard]] std::optional<std::string> Element(TGivenValue Given, std::span<const std::string_view> Names);
    [[nodiscard]] std::optional<std::vector<std::string>> Texts(TGivenValue Given);
    /// Any of the names.
    [[nodiscard]] std::optional<std::vector<std::string>> Elements(TGivenValue Given,
                                                                   std::span<const std::string_view> Names);
    /// What the property can hold.
    [[nodiscard]] std::optional<TQXPropertyValue> Property(const TQXProperty& Property, TGivenValue Given);

    [[nodiscard]] const std::vector<TValueError>& Errors() const { return FErrors; }

private:
    template <typename T> [[nodiscard]] T* Held(TGivenValue& Given, std::string_view Expected);
    [[nodiscard]] std::optional<std::vector<std::string>> Items(TGivenValue& Given, std::string_view Expected);
    [[nodiscard]] bool CheckElement(const std::string& Text, std::span<const std::string_view> Names,
                                    std::optional<std::size_t> Item);
    void AddWrongKind(const TGivenValue& Given, std::string_view Expected, std::optional<std::size_t> Item = {});

    std::string_view FName;
    std::vector<TValueError> FErrors;
};

/// A text that stands for a property's value, as on a command line; the items of a set or list are comma text.
[[nodiscard]] TGivenValue GivenText(TQXPropertyType Type, const std::string& Text);
/// The value that Text stands for. Throws EUsageError, which calls the property Name.
[[nodiscard]] TQXPropertyValue ParsePropertyText(const TQXProperty& Property, std::string_view Name,
                                                 const std::string& Text);
