// Upper and lower case of single characters, which the system knows.
#pragma once

/// The lower-case form of a code point; itself if it has none.
[[nodiscard]] char32_t LowerCharacter(char32_t Character);
