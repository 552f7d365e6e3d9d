#include "apps/designer/document/DesignTime.h"

#include <stdexcept>

std::string ExpandAtDesignTime(const TProject& Project, std::string_view Text)
{
    TVariables Variables;
    Variables.SetProjectVariables(Project.AllVariables());
    Variables.SetHostVariables(
        {{"ProjectDir", Project.Folder}, {"ProjectFile", Project.File}, {"ProjectName", Project.Name}});
    TExpansion Expansion = Variables.Expand(Text);
    if (!Expansion.Succeeded)
        throw std::runtime_error(Expansion.Reason);
    return std::move(Expansion.Text);
}
