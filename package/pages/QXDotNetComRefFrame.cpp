#include "package/pages/QXDotNetComRefFrame.h"

#include "host/QXForms.h"
#include "package/pages/QXFileFilters.h"
#include "package/pages/QXPageSteps.h"
#include "package/sourceupdate/QXDotNetComRefAction.h"
#include "platform/Paths.h"
#include "platform/Text.h"

namespace
{
/// The entry of FileFilters::LanguageProjects that shows the file; none for an empty name or a file of another kind.
std::optional<std::size_t> FilterEntryOf(const std::string& FileName)
{
    constexpr std::string_view Extensions[] = {".csproj", ".vbproj", ".vjsproj"};
    for (std::size_t Index = 0; Index < std::size(Extensions); ++Index)
        if (Texts::Same(Paths::Extension(FileName), Extensions[Index]))
            return Index;
    return std::nullopt;
}
} // namespace

TDotNetComRefFrame::TDotNetComRefFrame()
{
    Bind(txtProjectFile, &TQXDotNetComReferenceFixAction::ProjectFile);
    Bind(txtReferenceName, &TQXDotNetComReferenceFixAction::ReferenceName);
    Bind(txtProgID, &TQXDotNetComReferenceFixAction::ProgID);
    txtProjectFile.OnBrowse = [this] { BrowseProject(); };
}

void TDotNetComRefFrame::BrowseProject()
{
    TQXDialog Dialog{.Kind = TQXDialogKind::Open,
                     .Title = "Select Project File",
                     .Filter = FileFilters::LanguageProjects,
                     .File = ExpandedAtDesignTime(txtProjectFile.Text)};
    Dialog.FilterIndex = FilterEntryOf(Dialog.File);
    if (QXRunFileDialog(Dialog))
        txtProjectFile.Change(Dialog.File);
}
