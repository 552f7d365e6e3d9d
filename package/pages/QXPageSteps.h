// The steps that the pages share: browsing for what a field names, adding to lists, boxes that exclude each other.
#pragma once

#include "host/QXForms.h"

#include <string>
#include <string_view>

/// The text with the variables of the edited project replaced; empty where that fails.
[[nodiscard]] std::string ExpandedAtDesignTime(std::string_view Text);
/// The file that the text names, from the folder of the edited project; empty for an empty text. Throws
/// std::runtime_error where the text does not expand.
[[nodiscard]] std::string FileAtDesignTime(std::string_view Text);

// Each asks for a file or a folder and puts it into the field; true if one was chosen.

/// The common browse step: with the title "Select File", beginning at the expanded text of the field.
bool GetFile(TEdit& Edit, std::string_view Filter);
/// By a file dialog of the page's own, beginning at the expanded text or, in an empty field, at Dialog.File.
bool GetFileByDialog(TEdit& Edit, TQXDialog Dialog);
/// Beginning at the text of the field as it is.
bool GetFileAsIs(TEdit& Edit, std::string_view Filter, std::string_view Title = "Select File");
/// For a file that is there, beginning in the folder of the one that the field names.
bool GetTool(TEdit& Edit, std::string_view Filter);
/// For a folder, beginning at the text of the field as it is.
bool GetFolder(TEdit& Edit, std::string_view Prompt);

/// The editor of a list that stands in one text.
struct TListEditor
{
    std::string_view Title;
    std::string_view Caption;
    std::string_view Mask{};
    std::string_view Separator = ",";
    int Option = 0;
    bool IsWords = false;
};
/// Edits the list in the field; true if it was confirmed.
bool EditList(TEdit& Edit, const TListEditor& Editor);

// These give the field a button that takes the step.
void Browse(TEdit& Edit, std::string_view Filter = {});
void BrowseByDialog(TEdit& Edit, TQXDialog Dialog);
void BrowseByDialog(TEdit& Edit, std::string_view Filter = {});
void BrowseAsIs(TEdit& Edit, std::string_view Filter, std::string_view Title = "Select File");
void BrowseTool(TEdit& Edit, std::string_view Filter);
void BrowseFolder(TEdit& Edit, std::string_view Prompt);
/// Begins at the expanded text of the field.
void BrowseFolderFromExpanded(TEdit& Edit, std::string_view Prompt);
void BrowseList(TEdit& Edit, const TListEditor& Editor);

/// Gives the field a button that appends its text to the memo as a line, an empty one too, and empties it.
void AcceptInto(TMemo& Memo, TEdit& Edit);
/// Ticks the box as its user would.
void Tick(TCheckBox& Box);
/// Checking one of the boxes clears the other.
void ExcludeEachOther(TCheckBox& One, TCheckBox& Other);
