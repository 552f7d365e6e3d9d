// Text between the host, in UTF-8, and scripts, whose letters beyond U+FFFF are pairs of surrogates.
#pragma once

#include <string>
#include <string_view>

namespace ScriptText
{
/// For the engine. Malformed bytes become U+FFFD: some of them would be more than text to it.
[[nodiscard]] std::string FromHost(std::string_view Text);
/// As valid UTF-8; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToHost(std::string_view Text);
} // namespace ScriptText
