// The text of XML files as people and their tools leave it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The bytes of an XML file as UTF-8: an encoding mark decides, then the declaration; without both, and for a Unicode
/// that the bytes are not in, valid UTF-8 stays and all else is in the 8-bit code page. None for other encodings that
/// the file declares.
[[nodiscard]] std::optional<std::string> DecodeXml(std::string_view Bytes);
/// The code page in which Windows, whose paths such a file holds, reads an encoding that the file declares; null if it
/// reads it as everybody does.
[[nodiscard]] const char* DeclaredCodePage(std::string_view Bytes);
/// The text with bare ampersands made escapes, as a strict parser takes it. The escapes of XML stay.
[[nodiscard]] std::string RepairAmpersands(std::string Text);
