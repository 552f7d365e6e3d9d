// How the settings become the lines of a response file.

#include "package/compiler/QXDotNetManagedCompilerAction.h"

#include "host/QXUtilities.h"
#include "package/compiler/QXDotNetUtils.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Text.h"

#include <algorithm>

namespace
{
constexpr std::string_view TargetSwitches[] = {"/target:exe", "/target:library", "/target:module", "/target:winexe"};

/// The items of a list whose separators are line breaks and the characters given.
TStringList SplitList(std::string Text, std::string_view Separators)
{
    for (const char Separator : Separators)
        Text = Text::Replace(Text, std::string_view(&Separator, 1), "\r\n");
    TStringList Items;
    Items.SetText(Text);
    return Items;
}

/// What an entry of a resource list gives the compiler: `file,identifier` for `file=identifier`, else the entry.
std::string ResourceItem(const std::string& Entry, bool StripPlain)
{
    const auto Equals = Entry.find('=');
    if (Equals == std::string::npos)
        return StripPlain ? StripQuotes(Text::Trim(Entry)) : Entry;
    const std::string Identifier = Entry.substr(Equals + 1);
    return Identifier.empty() ? Entry.substr(0, Equals) : Entry.substr(0, Equals) + ',' + Identifier;
}
} // namespace

bool TQXManagedCompilerAction::AddOptionToResponseFile(std::string_view Switch, std::string_view PropertyLabel,
                                                       std::string_view Value, std::string_view SecondValue,
                                                       TStringList& Lines, bool AddWhenEmpty,
                                                       std::string_view Separator) const
{
    std::string First;
    std::string Second;
    if (!TryExpandExpression(PropertyLabel, Text::Trim(Value), First, false) ||
        !TryExpandExpression(std::string(PropertyLabel) + " (2nd parameter)", Text::Trim(SecondValue), Second, false))
        return false;

    if (!First.empty())
    {
        if (First.find(' ') != std::string::npos && First.find('"') == std::string::npos)
            First = DoubleQuoteString(First, true);
        if (!Second.empty())
            First.append(Separator).append(Second);
        Lines.Add(std::string(Switch) + ':' + First);
    }
    else if (AddWhenEmpty)
        Lines.Add(std::string(Switch));
    return true;
}

bool TQXManagedCompilerAction::AddOption(std::string_view Switch, std::string_view Label, std::string_view Value,
                                         TStringList& Lines) const
{
    return AddOptionToResponseFile(Switch, Label, Value, {}, Lines, false, ",");
}

bool TQXManagedCompilerAction::GenerateResponseFile(const std::string& BaseDir, TStringList& Lines)
{
    Lines.Add(std::string(TargetSwitches[static_cast<std::size_t>(Target)]));
    if (Optimize)
        Lines.Add("/optimize");
    if (!AddOption("/addmodule", "Modules", Modules, Lines) || !AddReferences(Lines))
        return false;
    AddDebugSwitches(Lines);
    if (!AddOption("/nowarn", "No warnings", SupressWarnings, Lines))
        return false;
    if (WarnAsError)
        Lines.Add("/warnaserror+");
    if (!AddOption("/define", "Define Preprocessor Symbols", Defines, Lines) || !AddLinkResources(Lines) ||
        !AddResources(BaseDir, "Resource", Resources, TNaming::UnlessCompiled, Lines) ||
        !AddResources(BaseDir, "Resource", CompiledResources, TNaming::Always, Lines) ||
        !AddResources(BaseDir, "Licenses", LicenseResources, TNaming::None, Lines))
        return false;
    return AddOutputSwitches(Lines) && AddSources(Lines);
}

void TQXManagedCompilerAction::AddDebugSwitches(TStringList& Lines) const
{
    if (NoLogo)
        Lines.Add("/nologo");
    if (Debug == TDotNetDebugOptions::DebugFull)
        Lines.Add("/debug:full");
    else if (Debug == TDotNetDebugOptions::DebugPDBOnly)
        Lines.Add("/debug:pdbonly");
}

bool TQXManagedCompilerAction::AddOutputSwitches(TStringList& Lines) const
{
    const bool IsLibrary = Target == TDotNetTarget::Lib || Target == TDotNetTarget::Module;
    if ((IsLibrary && !AddOption("/baseaddress", "Base Address", BaseAddress, Lines)) ||
        !AddOption("/codepage", "Code Page", CodePage, Lines) || !AddOption("/main", "Main Class", MainClass, Lines) ||
        !AddOption("/out", "Output File", OutputFile, Lines) || !AddRecursion(Lines))
        return false;
    if (OutputInUTF8)
        Lines.Add("/utf8output");
    return true;
}

bool TQXManagedCompilerAction::AddReferences(TStringList& Lines) const
{
    TStringList Items;
    Items.SetCommaText('"' + Text::Replace(References, ",", "\",\"") + '"');
    return std::all_of(Items.begin(), Items.end(),
                       [&](const std::string& Item) { return AddOption("/reference", "References", Item, Lines); });
}

bool TQXManagedCompilerAction::AddLinkResources(TStringList& Lines) const
{
    std::string Expanded;
    if (!TryExpandExpression("Link Resource", LinkResources, Expanded, false))
        return false;
    for (const std::string& Entry : SplitList(std::move(Expanded), ","))
        Lines.Add("/linkresource:" + DoubleQuoteString(ResourceItem(Entry, false), true));
    return true;
}

bool TQXManagedCompilerAction::AddResources(const std::string& BaseDir, std::string_view Label, const std::string& List,
                                            TNaming Naming, TStringList& Lines) const
{
    std::string Expanded;
    if (!TryExpandExpression(Label, List, Expanded, false))
        return false;
    for (const std::string& Entry : SplitList(std::move(Expanded), ","))
    {
        const std::string Item = ResourceItem(Entry, true);
        if (Item.empty())
            continue;
        std::string Line = "/resource:" + DoubleQuoteString(Item, true);
        const std::string File = StripQuotes(Item);
        const bool Named = Naming == TNaming::Always ||
                           (Naming == TNaming::UnlessCompiled && !Text::Same(Paths::Extension(File), ".resources"));
        if (Named && !RootNameSpace.empty())
            Line += ',' + DoubleQuoteString(RootNameSpace + '.' + DottedName(File, BaseDir), true);
        Lines.Add(std::move(Line));
    }
    return true;
}

bool TQXManagedCompilerAction::AddRecursion(TStringList& Lines) const
{
    if (!RecurseDir.empty())
        return AddOptionToResponseFile("/recurse", "Recurse Directory", RecurseDir, RecurseFiles, Lines, false, "");
    return AddOption("/recurse", "Recurse Directory", RecurseFiles, Lines);
}

bool TQXManagedCompilerAction::AddSources(TStringList& Lines) const
{
    std::string Expanded;
    if (!TryExpandExpression("Files", Files, Expanded, false))
        return false;
    if (Expanded.empty() && RecurseFiles.empty())
    {
        SendMessage("No Files to Compile!");
        return false;
    }
    for (const std::string& File : SplitList(std::move(Expanded), ";"))
        if (!File.empty())
            Lines.Add(DoubleQuoteString(File, true));
    return true;
}

bool TQXManagedCompilerAction::AddFileSwitches(std::string_view Switch, std::string_view Label, std::string_view List,
                                               TStringList& Lines) const
{
    std::string Expanded;
    if (!TryExpandExpression(Label, List, Expanded, false))
        return false;
    for (const std::string& File : SplitList(std::move(Expanded), ";,"))
        if (const std::string_view Name = Text::Trim(File); !Name.empty())
            Lines.Add(std::string(Switch) + ':' + DoubleQuoteString(Name, true));
    return true;
}

void TQXManagedCompilerAction::AddWarningLevel(TDotNetWarningLevels Level, TStringList& Lines)
{
    Lines.Add("/warn:" + std::to_string(static_cast<int>(Level)));
}
