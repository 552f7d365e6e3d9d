#include "package/pages/QXFrameFxCopRules.h"

#include "package/analysis/QXFxCopAction.h"
#include "package/pages/QXFileFilters.h"

TFrameFxCopRules::TFrameFxCopRules()
{
    Bind(lbRules, &TQXFxCopAction::Rules);
    EditLines(lbRules, Buttons,
              {.Filter = FileFilters::ExesAndDlls,
               .FolderPrompt = "Select a folder containing rules assemblies",
               .OtherTitle = "Other rule",
               .OtherPrompt = "Filename:",
               .HasRules = true});
}
