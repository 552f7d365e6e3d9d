#pragma once

#include "package/pages/QXDotNetToolBaseFrame.h"
#include "package/sdktools/QXDotNetGACAction.h"

#include <initializer_list>

/// The controls that both GAC pages end with: force, and the reference that is counted.
struct TGACReferenceGroup
{
    TGACReferenceGroup(TContainer& Page, std::string_view Force, std::string_view RefCount)
        : chkReinstall(Page, "chkReinstall", Force), chkRefCount(Page, "chkRefCount", RefCount),
          pnlReference(Page, "pnlReference")
    {}
    TCheckBox chkReinstall;
    TCheckBox chkRefCount;
    TPanel pnlReference;
    TEdit txtScheme{pnlReference, "txtScheme", "Scheme :"};
    TEdit txtID{pnlReference, "txtID", "ID :"};
    TEdit txtDescription{pnlReference, "txtDescription", "Description :"};
};

/// Base of the pages that install and uninstall.
class TGACFrame : public TDotNetToolBaseFrame, public IQXPageValidation
{
protected:
    /// A field that must not be empty while its button is checked.
    struct TRequired
    {
        const TRadioButton& Button;
        const TEdit& Edit;
        const char* Message;
    };
    void BindReference(TGACReferenceGroup& Reference);
    /// Shows the first problem and gives False, or True.
    [[nodiscard]] static bool Check(std::initializer_list<TRequired> Fields, const TGACReferenceGroup& Reference);
};
