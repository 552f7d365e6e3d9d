#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"
#include "package/pages/QXPageSteps.h"

/// Base of the pages of the actions that pass a user's own arguments to their tool.
template <typename TAction> class TFreeFormFrame : public TDotNetToolBaseFrame
{
protected:
    explicit TFreeFormFrame(std::string_view Heading) : lblOptions(*this, "lblOptions", Heading)
    {
        Bind(Memo1, &TAction::Options);
        Bind(txtStartDir, &TAction::StartDir);
        BrowseFolder(txtStartDir, "Select the working folder");
    }
    TLabel lblOptions;
    TMemo Memo1{*this, "Memo1"};
    TLabel lblStartDir{*this, "lblStartDir", "Working Folder"};
    TEdit txtStartDir{*this, "txtStartDir"};
};
