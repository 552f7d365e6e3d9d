#include "package/pages/QXPageSteps.h"

#include "host/QXServices.h"
#include "host/QXUtilities.h"

#include <exception>
#include <utility>

namespace
{
bool ChooseFile(TEdit& Edit, std::string File, std::string_view Filter, std::string_view Title)
{
    if (!QXBrowseForFile(File, Filter, Title))
        return false;
    Edit.Change(File);
    return true;
}
} // namespace

std::string ExpandedAtDesignTime(std::string_view Text)
try
{
    return QXDesignApplicationServices().ExpandDesignTime(Text);
}
catch (const std::exception&)
{
    return {};
}

bool GetFile(TEdit& Edit, std::string_view Filter)
{
    return ChooseFile(Edit, ExpandedAtDesignTime(Edit.Text), Filter, "Select File");
}

bool GetFileTitled(TEdit& Edit, std::string_view Filter, std::string_view Title)
{
    return ChooseFile(Edit, Edit.Text, Filter, Title);
}

bool GetFileByDialog(TEdit& Edit, TQXDialog Dialog)
{
    if (!Edit.Text.empty())
        Dialog.File = ExpandedAtDesignTime(Edit.Text);
    if (!QXRunFileDialog(Dialog))
        return false;
    Edit.Change(Dialog.File);
    return true;
}

bool GetFolder(TEdit& Edit, std::string_view Prompt)
{
    std::string Folder = Edit.Text;
    if (!QXBrowseForDirectory(Folder, Prompt))
        return false;
    Edit.Change(Folder);
    return true;
}

void Browse(TEdit& Edit, std::string_view Filter)
{
    Edit.OnBrowse = [&Edit, Filter] { GetFile(Edit, Filter); };
}

void BrowseTitled(TEdit& Edit, std::string_view Filter, std::string_view Title)
{
    Edit.OnBrowse = [&Edit, Filter, Title] { GetFileTitled(Edit, Filter, Title); };
}

void BrowseByDialog(TEdit& Edit, TQXDialog Dialog)
{
    Edit.OnBrowse = [&Edit, Dialog = std::move(Dialog)] { GetFileByDialog(Edit, Dialog); };
}

void BrowseByDialog(TEdit& Edit, std::string_view Filter)
{
    BrowseByDialog(Edit, {.Kind = TQXDialogKind::Open, .Filter = std::string(Filter)});
}

void BrowseFolder(TEdit& Edit, std::string_view Prompt)
{
    Edit.OnBrowse = [&Edit, Prompt] { GetFolder(Edit, Prompt); };
}

void AppendOnAccept(TEdit& Edit, TMemo& Memo)
{
    Edit.OnAccept = [&Edit, &Memo] {
        if (!Edit.Text.empty())
            Memo.Lines.Add(std::exchange(Edit.Text, {}));
    };
}

void Tick(TCheckBox& Box)
{
    Box.Checked = true;
    if (Box.OnClick)
        Box.OnClick();
}

void ExcludeEachOther(TCheckBox& One, TCheckBox& Other)
{
    const auto Clear = [](const TCheckBox& Checked, TCheckBox& Cleared) {
        return [&Checked, &Cleared] { Cleared.Checked = Cleared.Checked && !Checked.Checked; };
    };
    One.OnClick = Clear(One, Other);
    Other.OnClick = Clear(Other, One);
}
