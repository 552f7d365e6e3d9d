#include "package/pages/QXGACFrame.h"

#include "host/QXForms.h"

void TGACFrame::BindReference(TGACReferenceGroup& Reference)
{
    Bind(Reference.chkReinstall, &TQXGACAction::Force);
    Bind(Reference.chkRefCount, &TQXGACAction::ReferenceCount);
    Bind(Reference.txtScheme, &TQXGACAction::RefScheme);
    Bind(Reference.txtID, &TQXGACAction::RefID);
    Bind(Reference.txtDescription, &TQXGACAction::RefDescription);
    EnableWhile(Reference.pnlReference, Reference.chkRefCount);
}

bool TGACFrame::Check(std::initializer_list<TRequired> Fields, const TGACReferenceGroup& Reference)
{
    for (const TRequired& Field : Fields)
        if (Field.Button.IsChecked() && Field.Edit.Text.empty())
        {
            QXShowError(Field.Message);
            return false;
        }
    const bool IsComplete =
        !Reference.txtScheme.Text.empty() && !Reference.txtID.Text.empty() && !Reference.txtDescription.Text.empty();
    if (!Reference.chkRefCount.Checked || IsComplete)
        return true;
    QXShowError("Scheme, ID, and Description are all required for reference counting.");
    return false;
}
