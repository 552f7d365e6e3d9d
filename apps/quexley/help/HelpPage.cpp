#include "apps/quexley/help/HelpPage.h"

#include "apps/quexley/commands/PropertyTexts.h"
#include "apps/quexley/commands/ShownClass.h"
#include "host/QXUtilities.h"
#include "platform/Files.h"
#include "platform/Paths.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
std::string AsSentence(const std::string& Text)
{
    return Text.empty() || Text.ends_with('.') ? Text : Text + '.';
}

/// Nothing for an empty text; of a long list its length.
std::string DefaultSentence(const TQXPropertyValue& Value)
{
    constexpr std::size_t MostLines = 8;
    if (const auto* Lines = std::get_if<std::vector<std::string>>(&Value); Lines && Lines->size() > MostLines)
        return fmt::format(" Default: {} lines.", Lines->size());
    const std::string Text = PropertyText(Value);
    return Text.empty() ? "" : fmt::format(" Default: `{}`.", Text);
}

THelpBlock PropertyBlock(const TQXProperty& Property, bool IsHidden)
{
    std::string Meaning = AsSentence(std::string(PropertyHelp(Property))) + DefaultSentence(Property.Read());
    if (!Property.AliasText.empty())
        Meaning = fmt::format("{}: {}", Property.AliasText, Meaning);
    const std::string Notes = PropertyNotes(Property, IsHidden);
    return {THelpKind::Term, std::move(Meaning), std::string(Property.Name),
            std::string(PropertyTypeName(Property.Type)) + (Notes.empty() ? "" : ", " + Notes)};
}

THelpBlock ScriptBlock(TQXScript& Script)
{
    std::string Parameters;
    for (const TQXScriptParam& Param : Script.Params())
        Parameters += fmt::format("{}`{}` ({}{})", Parameters.empty() ? "" : ", ", Param.Name(),
                                  ScriptParamTypeName(Param), Param.IsOutput() ? ", output" : "");
    return {THelpKind::Term, "Parameters: " + Parameters + '.', Script.Name(), ""};
}

void AddProperties(THelpPage& Page, const TShownClass& Shown)
{
    Page.push_back({THelpKind::Heading, "Properties"});
    for (const TQXProperty& Property : Shown.Object->Properties())
        if (Property.IsPersisted())
            Page.push_back(PropertyBlock(Property, Shown.IsHidden(Property.Name)));
}

void AddScripts(THelpPage& Page, const TCustomQXAction& Action)
{
    if (Action.Scripts().empty())
        return;
    Page.push_back({THelpKind::Heading, "Scripts"});
    for (const auto& Script : Action.Scripts())
        Page.push_back(ScriptBlock(*Script));
}
/// A part that is written by hand, with those that it includes in place of its marks.
std::string ReadPart(const std::string& File, const std::string& Folder)
{
    constexpr std::string_view Mark = "<!-- include ";
    constexpr std::string_view MarkEnd = " -->";
    const std::string Text = Files::Read(File);
    std::string Result;
    std::size_t Place = 0;
    while (true)
    {
        const std::size_t Begin = Text.find(Mark, Place);
        const std::size_t End = Text.find(MarkEnd, Begin);
        if (End == std::string::npos)
            return Result + Text.substr(Place);
        Result.append(Text, Place, Begin - Place);
        const std::string Name = Text.substr(Begin + Mark.size(), End - Begin - Mark.size());
        Result += Files::Read(Paths::Expand(Name, Folder));
        Place = End + MarkEnd.size();
    }
}
} // namespace

THelpPage ComposeHelp(const TShownClass& Shown, THelpPage Written)
{
    if (Written.empty() && Shown.Action)
        Written = {{THelpKind::Heading, "Example"}, {THelpKind::Code, ExampleBlock(Shown)}};
    const auto FirstHeading = std::find_if(Written.begin(), Written.end(),
                                           [](const THelpBlock& Block) { return Block.Kind == THelpKind::Heading; });
    THelpPage Page = {{THelpKind::Title, Shown.Title}};
    Page.insert(Page.end(), std::make_move_iterator(Written.begin()), std::make_move_iterator(FirstHeading));
    AddProperties(Page, Shown);
    if (Shown.Action)
        AddScripts(Page, *Shown.Action);
    Page.insert(Page.end(), std::make_move_iterator(FirstHeading), std::make_move_iterator(Written.end()));
    return Page;
}

THelpPage HelpOf(const TShownClass& Shown)
{
    const std::string Part = Paths::ChangeExtension(Shown.QuickHelpFilename, ".md");
    const std::string Folder = Paths::Join(QXShareFolder(), "help");
    const std::string File = Paths::Expand(Part, Folder);
    const bool IsWritten = !Part.empty() && Files::FileExists(File);
    return ComposeHelp(Shown, IsWritten ? ParseHelp(ReadPart(File, Folder)) : THelpPage());
}
