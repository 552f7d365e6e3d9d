#include "package/pages/QXPageSteps.h"

#include "host/QXServices.h"
#include "host/QXUtilities.h"
#include "platform/Paths.h"

#include <exception>
#include <utility>

namespace
{
bool ChooseFile(TEdit& Edit, std::string File, std::string_view Filter, std::string_view Title)
{
    if (!QXBrowseForFile(File, Filter, Title))
        return false;
    Edit.Change(std::move(File));
    return true;
}

bool ChooseFolder(TEdit& Edit, std::string Folder, std::string_view Prompt)
{
    if (!QXBrowseForDirectory(Folder, Prompt))
        return false;
    Edit.Change(std::move(Folder));
    return true;
}

/// Runs the dialog and puts the file that was chosen into the field; true if one was.
bool PutFile(TEdit& Edit, TQXDialog Dialog)
{
    if (!QXRunFileDialog(Dialog))
        return false;
    Edit.Change(Dialog.File);
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

std::string FileAtDesignTime(std::string_view Text)
{
    const std::string File = QXDesignApplicationServices().ExpandDesignTime(Text);
    return File.empty() ? File : ExpandRelativePath(File, ExpandedAtDesignTime("%ProjectDir%"));
}

bool GetFile(TEdit& Edit, std::string_view Filter)
{
    return ChooseFile(Edit, ExpandedAtDesignTime(Edit.Text), Filter, "Select File");
}

bool GetFileByDialog(TEdit& Edit, TQXDialog Dialog)
{
    if (!Edit.Text.empty())
        Dialog.File = ExpandedAtDesignTime(Edit.Text);
    return PutFile(Edit, std::move(Dialog));
}

bool GetFileAsIs(TEdit& Edit, std::string_view Filter, std::string_view Title)
{
    return ChooseFile(Edit, Edit.Text, Filter, Title);
}

bool GetTool(TEdit& Edit, std::string_view Filter)
{
    return PutFile(Edit, {.Kind = TQXDialogKind::Open,
                          .Filter = std::string(Filter),
                          .Folder = Paths::Folder(Edit.Text),
                          .MustExist = true});
}

bool GetFolder(TEdit& Edit, std::string_view Prompt)
{
    return ChooseFolder(Edit, Edit.Text, Prompt);
}

bool EditList(TEdit& Edit, const TListEditor& Editor)
{
    std::string Text = Edit.Text;
    if (!EditPathEx(QXDesignApplicationServices(), Text, Editor.Title, Editor.Caption, Editor.Mask, 0, Editor.Separator,
                    Editor.Option, Editor.IsWords))
        return false;
    Edit.Change(Text);
    return true;
}

void Browse(TEdit& Edit, std::string_view Filter)
{
    Edit.OnBrowse = [&Edit, Filter] { GetFile(Edit, Filter); };
}

void BrowseByDialog(TEdit& Edit, TQXDialog Dialog)
{
    Edit.OnBrowse = [&Edit, Dialog = std::move(Dialog)] { GetFileByDialog(Edit, Dialog); };
}

void BrowseByDialog(TEdit& Edit, std::string_view Filter)
{
    BrowseByDialog(Edit, {.Kind = TQXDialogKind::Open, .Filter = std::string(Filter)});
}

void BrowseAsIs(TEdit& Edit, std::string_view Filter, std::string_view Title)
{
    Edit.OnBrowse = [&Edit, Filter, Title] { GetFileAsIs(Edit, Filter, Title); };
}

void BrowseTool(TEdit& Edit, std::string_view Filter)
{
    Edit.OnBrowse = [&Edit, Filter] { GetTool(Edit, Filter); };
}

void BrowseFolder(TEdit& Edit, std::string_view Prompt)
{
    Edit.OnBrowse = [&Edit, Prompt] { GetFolder(Edit, Prompt); };
}

void BrowseFolderFromExpanded(TEdit& Edit, std::string_view Prompt)
{
    Edit.OnBrowse = [&Edit, Prompt] { ChooseFolder(Edit, ExpandedAtDesignTime(Edit.Text), Prompt); };
}

void BrowseList(TEdit& Edit, const TListEditor& Editor)
{
    Edit.OnBrowse = [&Edit, Editor] { EditList(Edit, Editor); };
}

void AcceptInto(TMemo& Memo, TEdit& Edit)
{
    Edit.OnAccept = [&Memo, &Edit] {
        Memo.Lines.Add(Edit.Text);
        Edit.Change({});
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
