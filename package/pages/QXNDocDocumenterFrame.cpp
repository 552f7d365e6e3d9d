#include "package/pages/QXNDocDocumenterFrame.h"

#include "package/documentation/QXNDocAction.h"

namespace
{
struct TEntry
{
    const char* Name;
    TDocumenter Documenter;
    TStringList TQXNDocAction::*Settings;
    bool IsIn12 = true;
    bool IsIn13 = true;
};
constexpr TEntry Entries[] = {
    {.Name = "HTML Help 2", .Documenter = docHtmlHelp2, .Settings = &TQXNDocAction::HtmlHelp2Props, .IsIn13 = false},
    {"JavaDoc", docJavaDoc, &TQXNDocAction::JavaDocProps},
    {"LaTeX", docLaTeX, &TQXNDocAction::LaTeXProps},
    {"LinearHtml", docLinearHtml, &TQXNDocAction::LinearHtmlProps},
    {"MSDN", docMSDN, &TQXNDocAction::MSDNProps},
    {.Name = "MSDN 2003", .Documenter = docMSDN2003, .Settings = &TQXNDocAction::MSDN2003Props, .IsIn12 = false},
    {"XML", docXML, &TQXNDocAction::XMLProps},
    {.Name = "VS.NET 2003",
     .Documenter = docVSDotNet2003,
     .Settings = &TQXNDocAction::VSDotNet2003Props,
     .IsIn12 = false},
    {"<unspecified>", docDefault, nullptr},
};

std::string NameOf(TDocumenter Documenter)
{
    for (const TEntry& Entry : Entries)
        if (Entry.Documenter == Documenter)
            return Entry.Name;
    return {};
}

/// The documenter of an entry, or Default where none is picked.
TDocumenter DocumenterOf(const TComboBox& List, TDocumenter Default)
{
    for (const TEntry& Entry : Entries)
        if (List.Text == Entry.Name)
            return Entry.Documenter;
    return Default;
}
} // namespace

TNDocDocumenterFrame::TNDocDocumenterFrame()
{
    for (const TEntry& Entry : Entries)
        cbDocumenter.Items.emplace_back(Entry.Name);
    ValueListEditor1.Hint = "Settings of the documenter; those without a value are left to the tool";
    BindSettings();
    BindMember(
        cbDocumenter, &TQXNDocAction::Documenter, [this](TDocumenter Value) { cbDocumenter.SelectText(NameOf(Value)); },
        [this](TDocumenter& Value) { Value = DocumenterOf(cbDocumenter, Value); });
    cbDocumenter.OnChange = [this] {
        SaveSettings();
        ShowSettings();
    };
    EnableWhile(ValueListEditor1, [this] { return DocumenterOf(cbDocumenter, docDefault) != docDefault; });
}

void TNDocDocumenterFrame::BindSettings()
{
    for (const TEntry& Entry : Entries)
        if (Entry.Settings)
        {
            TStringList& Copy = FSettings[Entry.Documenter];
            BindMember(
                ValueListEditor1, Entry.Settings, [&Copy](const TStringList& Settings) { Copy = Settings; },
                [&Copy](TStringList& Settings) { Settings = Copy; });
        }
}

void TNDocDocumenterFrame::ListDocumenters(TNDocVersion Version)
{
    FIsByVersion = true;
    cbDocumenter.Items.clear();
    for (const TEntry& Entry : Entries)
        if (Version == NDoc12 ? Entry.IsIn12 : Entry.IsIn13)
            cbDocumenter.Items.emplace_back(Entry.Name);
}

void TNDocDocumenterFrame::ReadActionData(TCustomQXAction& Action)
{
    if (FIsByVersion)
        ListDocumenters(static_cast<TQXNDocAction&>(Action).NDocVersion);
    TFrame::ReadActionData(Action);
    ShowSettings();
}

void TNDocDocumenterFrame::WriteActionData(TCustomQXAction& Action)
{
    SaveSettings();
    TFrame::WriteActionData(Action);
}

void TNDocDocumenterFrame::NDocVersionChanged(TNDocVersion Version)
{
    SaveSettings();
    ListDocumenters(Version);
    const std::string Former = cbDocumenter.Text;
    if (!cbDocumenter.SelectText(Former) && FShown == (Version == NDoc12 ? docVSDotNet2003 : docHtmlHelp2))
        cbDocumenter.SelectText(NameOf(docDefault));
    ShowSettings();
}

/// A grid that was emptied does not count.
void TNDocDocumenterFrame::SaveSettings()
{
    TStringList& Copy = FSettings[FShown];
    if (FShown != docDefault && ValueListEditor1.Rows.size() > 2 && TGrid::RowsOf(Copy) != ValueListEditor1.Rows)
        Copy = ValueListEditor1.Lines();
}

void TNDocDocumenterFrame::ShowSettings()
{
    FShown = DocumenterOf(cbDocumenter, docDefault);
    ValueListEditor1.Rows = TGrid::RowsOf(FSettings[FShown]);
}
