#include "package/pages/QXDotNetResourceListForm.h"

#include "platform/Text.h"

TDotNetResourceListEditForm::TDotNetResourceListEditForm(std::string_view Caption, std::string_view Filter)
{
    Title = Caption;
    CloseBy(btnOK, btnCancel);
    ResourceList.OnEllipsis = [this, Filter = std::string(Filter)](std::size_t Row) {
        std::string& File = ResourceList.Rows[Row][0];
        TQXDialog Dialog{.Kind = TQXDialogKind::Open, .Filter = Filter, .File = File};
        if (QXRunFileDialog(Dialog))
            File = Dialog.File;
    };
}

void TDotNetResourceListEditForm::Load(std::string_view List)
{
    TStringList Lines;
    Lines.SetText(Texts::Replace(List, ",", "\n"));
    ResourceList.Rows = TGrid::RowsOf(Lines);
    if (ResourceList.Rows.empty())
        ResourceList.Rows.emplace_back(ResourceList.Columns.size());
}

std::string TDotNetResourceListEditForm::List() const
{
    std::string Result;
    for (const TGrid::TRow& Row : ResourceList.Rows)
        if (const std::string Entry = Row[1].empty() ? Row[0] : Row[0] + "=" + Row[1]; !Entry.empty())
            Result.append(Result.empty() ? "" : ",").append(Entry);
    return Result;
}

bool EditResourceList(const std::string& Caption, const std::string& Filter, std::string& List)
{
    TDotNetResourceListEditForm Form(Caption, Filter);
    Form.Load(List);
    if (!QXShowForm(Form))
        return false;
    List = Form.List();
    return true;
}
