// Helpers over UTF-8 text.
#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace Texts
{
/// Without the blanks and control characters at both ends.
[[nodiscard]] std::string_view Trim(std::string_view Text);
/// With ASCII letters in lower or upper case; other bytes stay.
[[nodiscard]] std::string Lower(std::string_view Text);
[[nodiscard]] std::string Upper(std::string_view Text);
/// The form in which two names that differ only in case are equal, letters beyond ASCII included.
[[nodiscard]] std::string FoldCase(std::string_view Text);
/// Equal ignoring the case of ASCII letters.
[[nodiscard]] bool Same(std::string_view Left, std::string_view Right);
[[nodiscard]] bool StartsWithSame(std::string_view Text, std::string_view Prefix);
/// Every occurrence of From replaced by To.
[[nodiscard]] std::string Replace(std::string_view Text, std::string_view From, std::string_view To);

/// The whole number that all of Text is, in digits of Base; none for another text or what T does not hold.
template <typename T> [[nodiscard]] std::optional<T> ParseWhole(std::string_view Text, int Base = 10)
{
    T Result{};
    const char* End = Text.data() + Text.size();
    const auto [Stop, Error] = std::from_chars(Text.data(), End, Result, Base);
    return Error == std::errc() && Stop == End ? std::optional(Result) : std::nullopt;
}

[[nodiscard]] bool IsAscii(std::string_view Text);
[[nodiscard]] bool IsValidUtf8(std::string_view Text);
/// How many bytes at the beginning are valid UTF-8.
[[nodiscard]] std::size_t ValidLength(std::string_view Text);
/// Whether a byte goes on with a character of UTF-8.
[[nodiscard]] constexpr bool IsTrailByte(char Byte)
{
    return (static_cast<unsigned char>(Byte) & 0xC0U) == 0x80U;
}
/// The length of the well-formed character at the start of Text, which is not empty; 0 for a malformed one.
[[nodiscard]] std::size_t CharacterLength(std::string_view Text);
/// The text's first characters.
[[nodiscard]] std::string_view FirstCharacters(std::string_view Text, std::size_t Count);
/// The most bytes up to Limit, which Text exceeds, that cut no character in two; Limit where the bytes are no UTF-8.
[[nodiscard]] std::size_t CutLength(std::string_view Text, std::size_t Limit);
/// The code point of a well-formed character, and the character of a code point or surrogate at the end of Text.
[[nodiscard]] char32_t CodePoint(std::string_view Sequence);
void AppendCodePoint(std::string& Text, char32_t Code);
/// With each malformed byte replaced by U+FFFD.
[[nodiscard]] std::string MakeValidUtf8(std::string_view Text);
/// The bytes of a text file as UTF-8: an encoding mark (UTF-8, UTF-16 of either order) decides and is
/// dropped; without one valid UTF-8 stays and all else counts as Windows-1252.
[[nodiscard]] std::string Decode(std::string_view Bytes);
/// UTF-16 as UTF-8; a lone surrogate or half a unit becomes U+FFFD. An encoding mark is text here.
[[nodiscard]] std::string FromUtf16(std::string_view Bytes, bool BigEndian);
/// UTF-8 as UTF-16, without an encoding mark.
[[nodiscard]] std::string ToUtf16(std::string_view Text, bool BigEndian);
[[nodiscard]] std::string FromWindows1252(std::string_view Bytes);
/// The text in Windows-1252; none if it is not valid UTF-8 or holds a character that is not there.
[[nodiscard]] std::optional<std::string> ToWindows1252(std::string_view Text);
/// What forbids to edit a text file's bytes as 8-bit text: "UTF-16", "UTF-32" or "NUL characters"; empty if nothing
/// does.
[[nodiscard]] std::string_view ForeignEncoding(std::string_view Bytes);
/// How many single-byte edits turn one name into the other; for "did you mean".
[[nodiscard]] std::size_t EditDistance(std::string_view Left, std::string_view Right);
} // namespace Texts
