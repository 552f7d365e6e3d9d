#include "package/pages/QXAssemblyInfoUpdaterEntriesFrame.h"

#include "host/QXForms.h"
#include "package/sourceupdate/QXAssemblyInfoUpdaterAction.h"
#include "platform/Text.h"

TAssemblyInfoUpdaterEntriesFrame::TAssemblyInfoUpdaterEntriesFrame()
{
    Bind(AttributeList, &TQXAssemblyInfoUpdaterAction::Attributes);
    AttributeList.EllipsisColumn = 1;
    AttributeList.OnEllipsis = [this](std::size_t Row) {
        std::string& Value = AttributeList.Rows[Row][1];
        if (std::string Text = Value; EditTextField(Text))
            Value = Text;
    };
}

void TAssemblyInfoUpdaterEntriesFrame::WriteActionData(TCustomQXAction& Action)
{
    std::erase_if(AttributeList.Rows, [](const TGrid::TRow& Row) { return Texts::Trim(Row[0]).empty(); });
    TFrame::WriteActionData(Action);
}
