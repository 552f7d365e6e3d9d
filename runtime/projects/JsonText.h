#pragma once

#include <span>
#include <string>
#include <string_view>

/// Writes a JSON text, two blanks to a level. Calls follow the structure; commas and line ends come by themselves.
class TJsonText
{
public:
    /// Brackets around the calls of Inside.
    template <typename T> void Object(T Inside)
    {
        Open('{');
        Inside();
        Close('}');
    }
    template <typename T> void Array(T Inside)
    {
        Open('[');
        Inside();
        Close(']');
    }
    /// Names the value that is written next.
    void Key(std::string_view Name);
    void String(std::string_view Value);
    void Integer(int Value);
    void Boolean(bool Value);
    /// An array of strings.
    void Strings(std::span<const std::string_view> Values);
    void Strings(std::span<const std::string> Values);
    /// A member of an object whose value is a string.
    void Member(std::string_view Name, std::string_view Value);

    [[nodiscard]] const std::string& Text() const { return FText; }

private:
    void Open(char Bracket);
    void Close(char Bracket);
    void BeginValue();
    void BeginLine();

    std::string FText;
    std::size_t FLevel = 0;
    bool FIsFirst = true;
    bool FHasKey = false;
};
