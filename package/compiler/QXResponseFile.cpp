#include "package/compiler/QXResponseFile.h"

#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
/// At which the compilers part the values of these switches. A reference ALIAS=FILE has an alias.
constexpr std::string_view ReferenceSeparators = ",;=";
constexpr std::string_view ResourceSeparators = ",;";

/// The items of a list whose separators are line breaks and the characters given.
TStringList SplitList(std::string Text, std::string_view Separators)
{
    for (const char Separator : Separators)
        Text = Texts::Replace(Text, std::string_view(&Separator, 1), "\r\n");
    TStringList Items;
    Items.SetText(Text);
    return Items;
}

/// What an entry of a resource list gives the compiler: `file,identifier` for `file=identifier`, else the entry.
std::string ResourceItem(const std::string& Entry, bool StripPlain)
{
    const auto Equals = Entry.find('=');
    if (Equals == std::string::npos)
        return StripPlain ? StripQuotes(Texts::Trim(Entry)) : Entry;
    const std::string Identifier = Entry.substr(Equals + 1);
    return Identifier.empty() ? Entry.substr(0, Equals) : Entry.substr(0, Equals) + ',' + Identifier;
}

std::string QuoteIfParted(std::string_view Value, std::string_view Separators)
{
    const bool IsParted = Value.find_first_of(Separators) != std::string_view::npos;
    return IsParted && Value.find('"') == std::string_view::npos ? DoubleQuoteString(Value, true) : std::string(Value);
}

/// The name of an embedded file behind a comma, or nothing.
std::string ResourceName(const std::string& File, TQXResourceNaming Naming, const std::string& RootNameSpace,
                         const std::string& BaseDir)
{
    const bool IsCompiled = Texts::Same(Paths::Extension(File), ".resources");
    if (RootNameSpace.empty() || Naming == TQXResourceNaming::None ||
        (Naming == TQXResourceNaming::UnlessCompiled && IsCompiled))
        return {};
    return ',' + DoubleQuoteString(RootNameSpace + '.' + DottedName(File, BaseDir), true);
}
} // namespace

void TQXResponseFile::AddFlag(bool IsSet, std::string_view Switch)
{
    if (IsSet)
        Add(Switch);
}

bool TQXResponseFile::AddOption(std::string_view Switch, std::string_view Label, std::string_view Value,
                                std::string_view SecondValue, std::string_view Separator)
{
    std::string First;
    std::string Second;
    if (!FAction.TryExpandExpression(Label, Texts::Trim(Value), First, false) ||
        !FAction.TryExpandExpression(std::string(Label) + " (2nd parameter)", Texts::Trim(SecondValue), Second, false))
        return false;
    if (First.empty())
        return true;
    First = QuoteIfParted(First, " ");
    if (!Second.empty())
        First.append(Separator).append(Second);
    FLines.Add(std::string(Switch) + ':' + First);
    return true;
}

void TQXResponseFile::AddExact(std::string_view Switch, std::string_view Value)
{
    FLines.Add(std::string(Switch) + ':' + QuoteIfParted(Value, " "));
}

bool TQXResponseFile::Split(const TQXFileSetting& Files, std::string_view Separators, TStringList& Items) const
{
    std::string Expanded;
    if (Files.Exact)
        Items = TStringList(*Files.Exact);
    else if (FAction.TryExpandExpression(Files.Label, Files.Typed, Expanded, false))
        Items = SplitList(std::move(Expanded), Separators);
    else
        return false;
    return true;
}

std::string TQXResponseFile::Unparted(const std::string& Path, std::string_view Separators) const
{
    if (Path.find_first_of(Separators) == std::string::npos)
        return Path;
    std::string Way = Paths::IsAbsolute(Path) ? Paths::RelativeTo(Path, FBaseDir) : Path;
    const auto Place = Way.find_first_of(Separators);
    if (Place == std::string::npos)
        return Way;
    FAction.SendMessage(std::string("Warning : The compiler may not find a file with \"") + Way[Place] +
                        "\" in its path : " + Path);
    return Path;
}

bool TQXResponseFile::AddFileSwitches(std::string_view Switch, const TQXFileSetting& Files)
{
    TStringList Items;
    if (!Split(Files, ";,", Items))
        return false;
    for (const std::string& Item : Items)
        if (const std::string_view Name = Texts::Trim(Item); !Name.empty())
            FLines.Add(std::string(Switch) + ':' + DoubleQuoteString(Name, true));
    return true;
}

bool TQXResponseFile::AddReferences(const TQXFileSetting& References)
{
    if (References.Exact)
    {
        for (const std::string& Path : *References.Exact)
            if (const std::string File(Texts::Trim(Path)); !File.empty())
                AddExact("/reference", QuoteIfParted(Unparted(File, ReferenceSeparators), ReferenceSeparators));
        return true;
    }
    TStringList Items;
    Items.SetCommaText('"' + Texts::Replace(References.Typed, ",", "\",\"") + '"');
    return std::all_of(Items.begin(), Items.end(),
                       [&](const std::string& Item) { return AddOption("/reference", References.Label, Item); });
}

bool TQXResponseFile::AddLinkResources(const TQXFileSetting& Resources)
{
    TStringList Entries;
    if (!Split(Resources, ",", Entries))
        return false;
    for (const std::string& Entry : Entries)
        FLines.Add("/linkresource:" + DoubleQuoteString(ResourceItem(Entry, false), true));
    return true;
}

bool TQXResponseFile::AddResources(const TQXFileSetting& Resources, TQXResourceNaming Naming,
                                   const std::string& RootNameSpace)
{
    TStringList Entries;
    if (!Split(Resources, ",", Entries))
        return false;
    for (const std::string& Entry : Entries)
    {
        const std::string Item = Resources.Exact ? Entry : ResourceItem(Entry, true);
        if (Item.empty())
            continue;
        const std::string Path = Resources.Exact ? Unparted(Item, ResourceSeparators) : Item;
        FLines.Add("/resource:" + DoubleQuoteString(Path, true) +
                   ResourceName(StripQuotes(Item), Naming, RootNameSpace, FBaseDir));
    }
    return true;
}

bool TQXResponseFile::AddSources(const TQXFileSetting& Sources, bool& Found)
{
    TStringList Items;
    if (!Split(Sources, ";", Items))
        return false;
    Found = !Items.IsEmpty();
    for (const std::string& File : Items)
        if (!File.empty())
            FLines.Add(DoubleQuoteString(File, true));
    return true;
}
