#include "package/plugin/QXActionHelpers.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "platform/CommandLines.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace
{
bool AddProperty(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                 const TQXExpansion& Property, TQXArgumentMode Mode, bool Required)
{
    if (!Action.TryExpandExpression(Property.Label, Property.Expression, Property.Result, Required))
        return false;
    if (!Property.Result.empty())
        Builder.AddArgument(Switch, Property.Result, Mode);
    return true;
}
} // namespace

bool ExpandRequired(const TCustomQXAction& Action, std::initializer_list<TQXExpansion> Properties)
{
    return std::all_of(Properties.begin(), Properties.end(), [&](const TQXExpansion& Property) {
        return Action.TryExpandExpression(Property.Label, Property.Expression, Property.Result, true);
    });
}

bool AddExpanded(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                 std::string_view Label, std::string_view Expression, TQXArgumentMode Mode)
{
    std::string Value;
    return AddProperty(Action, Builder, Switch, {Label, Expression, Value}, Mode, true);
}

bool AddOptional(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                 std::string_view Label, std::string_view Expression, TQXArgumentMode Mode)
{
    std::string Value;
    return AddProperty(Action, Builder, Switch, {Label, Expression, Value}, Mode, false);
}

bool AddFreeText(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Label,
                 std::string_view Expression)
{
    std::string Text;
    if (!Action.TryExpandExpression(Label, Expression, Text, false))
        return false;
    QXAddFreeText(Builder, Text);
    return true;
}

bool AddFile(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
             std::string_view Label, std::string_view Expression, std::string_view NotThere)
{
    std::string File;
    if (!Action.TryExpandExpression(Label, Expression, File, true))
        return false;
    const std::string Found = QXFiles().Find(File);
    if (!QXFiles().FileExists(Found))
    {
        Action.SendMessage(std::string(NotThere) + File);
        return false;
    }
    Builder.AddArgument(Switch, Found);
    return true;
}

bool ExpandProperties(const TCustomQXAction& Action, const TStringList& Lines,
                      const std::function<void(const std::string& Name, const std::string& Value)>& Take)
{
    for (std::size_t Index = 0; Index < Lines.Count(); ++Index)
    {
        const std::string Written = Lines.Name(Index);
        if (Texts::Trim(Written).empty())
            continue;
        std::string Name;
        std::string Value;
        if (!ExpandRequired(Action, {{"Property", Written, Name}, {"Value", Lines.Value(Written), Value}}))
            return false;
        Take(Name, Value);
    }
    return true;
}

bool CheckTarget(const TCustomQXAction& Action, std::string_view Property, std::string_view Path)
{
    if (!Paths::IsForeign(Path))
        return true;
    Action.SendMessage(std::string("Error - ").append(Property) +
                       " is on a drive, which there is only on Windows : " + std::string(Path));
    return false;
}

std::string ExpandStartDir(const TCustomQXAction& Action, std::string_view StartDir)
{
    std::string Folder;
    if (Action.TryExpandExpression("Working Directory", StartDir, Folder, true))
        return Folder;
    Action.SendMessage("Warning: working directory is blank");
    return {};
}

std::string ExpandFolderOf(const TCustomQXAction& Action, std::string_view Label, std::string_view Expression)
{
    std::string Path;
    return Action.TryExpandExpression(Label, Expression, Path, false) ? Paths::Folder(Path) : std::string();
}

std::string QuotePath(const std::string& Path)
{
    return Path.ends_with('\\') ? CommandLines::Quote(Path, true) : DoubleQuoteString(Path, true);
}

void AddFlags(ICommandLineBuilder& Builder, std::initializer_list<TQXFlag> Flags)
{
    for (const TQXFlag& Flag : Flags)
        if (Flag.IsSet)
            Builder.AddArgument(Flag.Switch);
}

bool Require(IQXActionValidationError& Errors, std::initializer_list<TQXRequirement> Requirements)
{
    bool Met = true;
    for (const TQXRequirement& Requirement : Requirements)
        if (!Requirement.IsMet)
        {
            Errors.AddError(Requirement.Label, Requirement.Message);
            Met = false;
        }
    return Met;
}

bool RequireTool(IQXActionValidationError& Errors, const std::string& Exe, const TQXFinding& NotSet,
                 const TQXFinding& NotFound)
{
    if (Exe.empty())
        return Require(Errors, {{false, NotSet.Label, NotSet.Message}});
    return Require(Errors, {{QXFiles().FileExists(Exe), NotFound.Label, NotFound.Message}});
}

std::string ExitCodeText(int ExitCode)
{
    std::array<char, 10> Text{};
    static_cast<void>(std::snprintf(Text.data(), Text.size(), "$%08X", static_cast<unsigned>(ExitCode)));
    return Text.data();
}
