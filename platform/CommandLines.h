// Command lines as one text, in the quoting of the Microsoft C run time.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace CommandLines
{
/// The arguments of a command line's text (without the program's name).
[[nodiscard]] std::vector<std::string> Split(std::string_view Arguments);
/// A command line that was written on several lines as it is on one: line ends outside of quotes part arguments. One
/// without line ends stays as it is.
[[nodiscard]] std::string JoinLines(std::string_view Arguments);
/// An argument quoted so that Split gives it back unchanged; unquoted where that is enough.
[[nodiscard]] std::string Quote(std::string_view Argument, bool Always = false);
} // namespace CommandLines
