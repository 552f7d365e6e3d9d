#pragma once

#include "host/QXPages.h"

/// The reference of a project that is brought in line with a type library.
class TDotNetComRefFrame final : public TFrame
{
public:
    TDotNetComRefFrame();
    [[nodiscard]] std::string PageName() const override { return "Options"; }

    TEdit txtProjectFile{*this, "txtProjectFile", "Project File"};
    TEdit txtReferenceName{*this, "txtReferenceName", "Reference Name"};
    TLabel lblReferenceNameHint{*this, "lblReferenceNameHint",
                                "should be as it appears in the References section in Visual Studio"};
    TEdit txtProgID{*this, "txtProgID", "ProgID"};
    TLabel lblProgIDHint{*this, "lblProgIDHint", "should be in the format Typlib.ClassName - e.g. Word.Document"};
    TLabel lblNote{*this, "lblNote", "Note this action only works with VS2002/3 Projects."};

private:
    void BrowseProject();
};
