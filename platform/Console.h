// The program's standard streams.
#pragma once

#include <string_view>
#include <system_error>

namespace Console
{
/// Puts nothing's device in place of standard streams that the program was started without: the next file to be
/// opened would take their place.
void OpenMissingStreams();
/// Whether standard output is a terminal.
[[nodiscard]] bool IsTerminal();
/// How many columns it has; 80 when that is not known.
[[nodiscard]] int Width();
/// Writes all bytes to standard output; std::errc::broken_pipe when nobody reads it any longer.
[[nodiscard]] std::error_code Write(std::string_view Bytes);
/// Ends the program as one that wrote to a closed pipe ends.
[[noreturn]] void EndByClosedPipe();
} // namespace Console
