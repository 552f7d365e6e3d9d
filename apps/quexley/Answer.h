#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

/// Standard output is a pipe that nobody reads any longer.
class EClosedPipe : public std::exception
{
};

/// Writes the whole answer of a command to standard output, and gives the exit code of success. Throws EClosedPipe,
/// EFileError.
int WriteAnswer(std::string_view Text);

/// Throws as WriteAnswer does for a write that failed.
void CheckWritten(const std::error_code& Error);

/// Lines of cells as text in aligned columns, two blanks between them.
[[nodiscard]] std::string AlignColumns(const std::vector<std::vector<std::string>>& Rows, std::string_view Indent = {});
