#include "package/pages/QXFrameFxCopTypesAndMembers.h"

#include "host/QXForms.h"
#include "package/analysis/QXFxCopAction.h"

TFrameFxCopTypesAndMembers::TFrameFxCopTypesAndMembers()
{
    Bind(lbTypes, &TQXFxCopAction::AnalyzeTypes);
    EditLines(lbTypes, Buttons);
    Buttons.btnAdd.OnClick = [this] { AddType(); };
}

void TFrameFxCopTypesAndMembers::AddType()
{
    std::string Name = "*";
    if (QXInputQuery("Add type or member to check", "Name:", Name))
        AddLine(lbTypes, std::move(Name));
}
