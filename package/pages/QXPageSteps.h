// The steps that the pages share: browsing for what a field names.
#pragma once

#include "host/QXControls.h"

#include <string>
#include <string_view>

/// The text with the variables of the edited project replaced; empty where that fails.
[[nodiscard]] std::string ExpandedAtDesignTime(std::string_view Text);

/// The common browse step: asks for a file with the title "Select File", beginning at the expanded text of the field,
/// and puts it there; true if one was chosen.
bool GetFile(TEdit& Edit, std::string_view Filter);
/// The same by a file dialog of the page's own, without a title.
bool GetFileByDialog(TEdit& Edit, std::string_view Filter);
/// Asks for a folder, beginning at the text of the field as it is, and puts it there; true if one was chosen.
bool GetFolder(TEdit& Edit, std::string_view Prompt);

// These give the field a button that takes the step.
void Browse(TEdit& Edit, std::string_view Filter = {});
void BrowseByDialog(TEdit& Edit, std::string_view Filter = {});
void BrowseFolder(TEdit& Edit, std::string_view Prompt);
