#include "package/compiler/QXResponseFile.h"

#include "host/QXFiles.h"
#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "package/plugin/QXActionHelpers.h"
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

/// An exact path in the quotes of response files: they end at the next one, so one in the path stands in quotes of the
/// other kind. Only systems whose compilers know both kinds have such paths.
std::string QuoteExact(const std::string& Path)
{
    return '"' + Texts::Replace(Path, "\"", "\"'\"'\"") + '"';
}

bool HasAny(std::string_view Text, std::string_view Characters)
{
    return Text.find_first_of(Characters) != std::string_view::npos;
}

std::string QuoteIfParted(std::string_view Value, std::string_view Separators)
{
    const bool IsParted = Value.find_first_of(Separators) != std::string_view::npos;
    return IsParted && Value.find('"') == std::string_view::npos ? DoubleQuoteString(Value, true) : std::string(Value);
}

/// A file in the quotes of a response file; what a person typed may bring its own.
std::string QuoteFile(const TQXFileSetting& Setting, const std::string& File)
{
    return Setting.Exact ? QuoteExact(File) : DoubleQuoteString(File, true);
}

/// The name of an embedded file; empty: the compiler takes the file's.
std::string ResourceName(const std::string& File, TQXResourceNaming Naming, const std::string& RootNameSpace,
                         const std::string& BaseDir)
{
    const bool IsCompiled = Texts::Same(Paths::Extension(File), ".resources");
    if (RootNameSpace.empty() || Naming == TQXResourceNaming::None ||
        (Naming == TQXResourceNaming::UnlessCompiled && IsCompiled))
        return {};
    return RootNameSpace + '.' + DottedName(File, BaseDir);
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
    if (!Value.empty())
        FLines.Add(std::string(Switch) + ':' +
                   (HasAny(Value, " '\",;=") ? QuoteExact(std::string(Value)) : std::string(Value)));
}

bool TQXResponseFile::AddTarget(std::string_view Switch, std::string_view Label, std::string_view Value)
{
    std::string Path;
    return FAction.TryExpandExpression(Label, Texts::Trim(Value), Path, false) && CheckTarget(FAction, Label, Path) &&
           AddOption(Switch, Label, Value);
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

std::string TQXResponseFile::Unparted(const std::string& Path, std::string_view Separators)
{
    if (!HasAny(Path, Separators))
        return Path;
    std::string Way = Paths::IsAbsolute(Path) ? Paths::RelativeTo(Path, FBaseDir) : Path;
    if (HasAny(Way, Separators))
        Way = CopyUnparted(Path, Separators);
    if (Way.empty())
        WarnOfParting(Path, Separators);
    return Way.empty() ? Path : Way;
}

std::string TQXResponseFile::CopyUnparted(const std::string& Path, std::string_view Separators)
{
    if (!Paths::IsAbsolute(Path) || !QXFiles().FileExists(Path))
        return {};
    std::string Name = Paths::FileName(Path);
    std::replace_if(
        Name.begin(), Name.end(),
        [=](char Item) {
            return HasAny({&Item, 1}, Separators);
        },
        '_');
    std::string Way = Paths::Normalise("obj/unparted/" + std::to_string(++FCopies) + '/' + Name);
    const std::string Copy = FBaseDir + Way;
    // A dry run says it in its own words.
    if (!TCustomQXAction::IsDryRun())
        FAction.SendMessage("Copying : " + Path + " to " + Copy);
    return QXFiles().ForceFolders(Paths::Folder(Copy)) && QXFiles().Copy(Path, Copy) ? Way : "";
}

void TQXResponseFile::WarnOfParting(const std::string& Path, std::string_view Separators) const
{
    FAction.SendMessage(std::string("Warning : The compiler may not find a file with \"") +
                        Path[Path.find_last_of(Separators)] + "\" in its path : " + Path);
}

bool TQXResponseFile::AddFileSwitches(std::string_view Switch, const TQXFileSetting& Files)
{
    TStringList Items;
    if (!Split(Files, ";,", Items))
        return false;
    for (const std::string& Item : Items)
        if (const std::string_view Name = Texts::Trim(Item); !Name.empty())
            FLines.Add(std::string(Switch) + ':' + QuoteFile(Files, std::string(Name)));
    return true;
}

bool TQXResponseFile::AddReferences(const TQXFileSetting& References)
{
    if (References.Exact)
    {
        for (const std::string& Path : *References.Exact)
            if (const std::string File(Texts::Trim(Path)); !File.empty())
                AddExact("/reference", Unparted(File, ReferenceSeparators));
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
        const std::string Name = ResourceName(StripQuotes(Item), Naming, RootNameSpace, FBaseDir);
        const std::string Path = Resources.Exact ? UnpartedResource(Item, Name) : Item;
        FLines.Add("/resource:" + QuoteFile(Resources, Path) + (Name.empty() ? "" : ',' + QuoteFile(Resources, Name)));
    }
    return true;
}

void TQXResponseFile::AddResources(const std::vector<TQXNamedResource>& Resources)
{
    for (const TQXNamedResource& Resource : Resources)
        FLines.Add("/resource:" + QuoteExact(UnpartedResource(Resource.Path, Resource.Name)) + ',' +
                   QuoteExact(Resource.Name));
}

std::string TQXResponseFile::UnpartedResource(const std::string& Path, const std::string& Name)
{
    // A copy brings a path without separators, but nothing brings the name without them that the program asks for.
    if (!HasAny(Name.empty() ? Paths::FileName(Path) : Name, ResourceSeparators))
        return Unparted(Path, ResourceSeparators);
    WarnOfParting(Path, ResourceSeparators);
    return Path;
}

bool TQXResponseFile::AddSources(const TQXFileSetting& Sources, bool& Found)
{
    TStringList Items;
    if (!Split(Sources, ";", Items))
        return false;
    Found = false;
    for (const std::string& File : Items)
        if (!Texts::Trim(File).empty())
        {
            FLines.Add(QuoteFile(Sources, File));
            Found = true;
        }
    return true;
}
