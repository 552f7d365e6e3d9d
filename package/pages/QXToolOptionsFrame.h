#pragma once

#include "host/QXPages.h"
#include "package/pages/QXPageSteps.h"

/// Base of the options pages that hold the location of one tool.
class TToolOptionsFrame : public TOptionsFrame
{
protected:
    /// What the page of a tool shows; all of it are literals.
    struct TTool
    {
        std::string_view PageName;
        std::string_view Caption;
        std::string_view Property;
        std::string_view Filter; ///< of the dialog that browses for it
        std::string_view Control = "txtLocation";
    };
    explicit TToolOptionsFrame(const TTool& Tool)
        : txtLocation(*this, Tool.Control, Tool.Caption), FPageName(Tool.PageName)
    {
        Bind(txtLocation, Tool.Property);
        BrowseTool(txtLocation, Tool.Filter);
    }

public:
    [[nodiscard]] std::string GetPageName() const override { return FPageName; }

    TEdit txtLocation;

private:
    std::string FPageName;
};
