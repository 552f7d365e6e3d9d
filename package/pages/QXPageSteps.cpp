#include "package/pages/QXPageSteps.h"

#include "host/QXForms.h"
#include "host/QXServices.h"
#include "host/QXUtilities.h"

#include <exception>

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
    std::string File = ExpandedAtDesignTime(Edit.Text);
    if (!QXBrowseForFile(File, Filter, "Select File"))
        return false;
    Edit.Change(File);
    return true;
}

bool GetFileByDialog(TEdit& Edit, std::string_view Filter)
{
    TQXDialog Dialog{.Kind = TQXDialogKind::Open,
                     .Filter = std::string(Filter),
                     .File = ExpandedAtDesignTime(Edit.Text)};
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

void BrowseByDialog(TEdit& Edit, std::string_view Filter)
{
    Edit.OnBrowse = [&Edit, Filter] { GetFileByDialog(Edit, Filter); };
}

void BrowseFolder(TEdit& Edit, std::string_view Prompt)
{
    Edit.OnBrowse = [&Edit, Prompt] { GetFolder(Edit, Prompt); };
}
