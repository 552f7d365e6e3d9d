#pragma once

#include "host/QXPages.h"
#include "package/pages/QXListButtons.h"

/// What is asked when files and folders are added to a list.
struct TFxCopAdding
{
    std::string_view Filter;
    std::string_view FolderPrompt;
    std::string_view OtherTitle;
    std::string_view OtherPrompt;
    bool HasRules = false; ///< the folder of the tool's own rules is offered as well
};

/// Base of the pages of FxCop: their lists are edited alike, and their hints tell where the tool lies.
class TFxCopFrame : public TFrame, public IQXPageHints
{
public:
    void OnShowHint(std::string& HintText) override;

protected:
    /// Gives the buttons that edit and delete lines their work.
    static void EditLines(TListBox& List, TListButtons& Buttons);
    /// Likewise, and the button that adds lines has a menu.
    static void EditLines(TListBox& List, TListButtons& Buttons, const TFxCopAdding& Adding);
    /// Adds a line that the list does not hold yet, whatever its case.
    static void AddLine(TListBox& List, std::string Line);
};
