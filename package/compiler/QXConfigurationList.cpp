// The configurations of a project, for those who choose one.

#include "package/compiler/QXProjectLoader.h"

#include "host/QXUtilities.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

bool TQXManagedCompilerAction::LoadConfigListFromProject(const std::string& FileName, TStringList& List) const
{
    List.Clear();
    if (!Files::FileExists(FileName))
        return false;
    const bool IsBorland = Text::Same(Paths::Extension(FileName), ".bdsproj");
    TXmlDocument Document;
    if (!(IsBorland ? Document.LoadFromFile(FileName)
                    : Document.LoadFromText(RepairAmpersands(LoadUnicodeFile(FileName).Text()))))
        return false;
    const std::string Path = IsBorland ? "CSharp.Personality/Options/OptionsSet"
                                       : GetCompilerTypeInProjectFile(FileName) + "/Build/Settings/Config";
    for (const TXmlElement& Configuration : Document.DocumentElement().SelectNodes(Path))
        List.Add(Configuration.Attribute("Name"));
    return true;
}
