// The steps that the pages share: browsing for what a field names, adding to lists, boxes that exclude each other.
#pragma once

#include "host/QXControls.h"
#include "host/QXForms.h"

#include <string>
#include <string_view>

/// The text with the variables of the edited project replaced; empty where that fails.
[[nodiscard]] std::string ExpandedAtDesignTime(std::string_view Text);

/// The common browse step: asks for a file with the title "Select File", beginning at the expanded text of the field,
/// and puts it there; true if one was chosen.
bool GetFile(TEdit& Edit, std::string_view Filter);
/// The same under another title, beginning at the text as it is.
bool GetFileTitled(TEdit& Edit, std::string_view Filter, std::string_view Title);
/// The same by a file dialog of the page's own, beginning at the expanded text or, in an empty field, at Dialog.File.
bool GetFileByDialog(TEdit& Edit, TQXDialog Dialog);
/// Asks for a folder, beginning at the text of the field as it is, and puts it there; true if one was chosen.
bool GetFolder(TEdit& Edit, std::string_view Prompt);

// These give the field a button that takes the step.
void Browse(TEdit& Edit, std::string_view Filter = {});
void BrowseTitled(TEdit& Edit, std::string_view Filter, std::string_view Title);
void BrowseByDialog(TEdit& Edit, TQXDialog Dialog);
void BrowseByDialog(TEdit& Edit, std::string_view Filter = {});
void BrowseFolder(TEdit& Edit, std::string_view Prompt);

/// Gives the field an accepting button that moves its text into a new line of the memo.
void AppendOnAccept(TEdit& Edit, TMemo& Memo);
/// Ticks the box as its user would.
void Tick(TCheckBox& Box);
/// Checking one of the boxes clears the other.
void ExcludeEachOther(TCheckBox& One, TCheckBox& Other);
