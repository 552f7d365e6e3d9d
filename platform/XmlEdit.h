// Edits of XML documents that leave every byte but those that are to change.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// An attribute and the value that it is to have, in UTF-8.
struct TXmlAttribute
{
    std::string Name;
    std::string Value;
};

/// The document's bytes with attributes of one element set; none if there is no element of this number (see
/// TXmlElement::Number). An attribute keeps its place and its quotes; one that is missing comes behind the last one and
/// is laid out like it. The document is taken to be well-formed, in an encoding in which ASCII characters stand for
/// themselves: who is not sure of that has the result parsed.
[[nodiscard]] std::optional<std::string> SetXmlAttributes(std::string_view Document, std::size_t ElementNumber,
                                                          std::span<const TXmlAttribute> Attributes);
