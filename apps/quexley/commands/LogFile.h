#pragma once

#include <string>
#include <vector>

class TProject;

/// Throws EUsageError if a log would replace a file that the run reads: one of Inputs, one that a property of an action
/// names or whose mask takes it, or any file that is named like a source, a project or a list of settings.
void CheckLogFile(const std::string& LogFile, const std::vector<std::string>& Inputs, const TProject& Project);
