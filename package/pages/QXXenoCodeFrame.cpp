#include "package/pages/QXXenoCodeFrame.h"

#include "host/QXForms.h"
#include "host/QXUtilities.h"
#include "package/analysis/QXXenoCodeAction.h"
#include "package/pages/QXPageSteps.h"
#include "platform/Paths.h"

#include <algorithm>

namespace
{
struct TPreset
{
    const char* Caption;
    TXenoCodePreset Preset;
};
constexpr TPreset Presets[] = {
    {"Default", xcpUseDefault},
    {"Aggressive", xcpAgressive},
    {"Conservative", xcpConservative},
    {"Size (only for XenoCode 2005)", xpcSize},
    {"Metadata-only (only for XenoCode 2005)", xpcMeta},
    {"Null", xcpNull},
};

/// What is browsed for, by version.
struct TFilters
{
    const char* Config;
    const char* Map;
};
constexpr TFilters Filters[] = {
    {"XenoCode Configurations (*.xcConfig)|*.xcConfig|All files|*.*", "XenoCode Map Files (*.map)|*.map|All files|*.*"},
    {"XenoCode Configurations (*.xcproj)|*.xcproj|All files|*.*", "XenoCode Map Files (*.xcmap)|*.xcmap|All files|*.*"},
    {"XenoCode Project (*.postbuild)|*.postbuild|All files|*.*", "XenoCode Map Files (*.xcmap)|*.xcmap|All files|*.*"},
};

constexpr std::size_t MostWatermarks = 3;
} // namespace

TXenoCodeFrame::TXenoCodeFrame()
{
    BindAll();
    BindPresets();
    SetUpWatermarks();
    AddRule([this] { edConfig.Caption = rbXenoCode2006.IsChecked() ? "Project File:" : "Configuration File:"; });
    edConfig.OnBrowse = [this] { GetFileAsIs(edConfig, Filters[Version()].Config); };
    edOutFolder.OnBrowse = [this] { BrowseOutFolder(); };
    edMapFile.OnBrowse = [this] { BrowseMapFile(); };
}

void TXenoCodeFrame::BindAll()
{
    Bind({&rbXenoCode2004, &rbXenoCode2005, &rbXenoCode2006}, "XenoCodeVersion");
    Bind(edConfig, &TQXXenoCodeAction::ConfigFile);
    Bind(edOutFolder, &TQXXenoCodeAction::OutputFolder);
    Bind(edMapFile, &TQXXenoCodeAction::MapFile);
    Bind(edPassPhrase, &TQXXenoCodeAction::PassPhrase);
    Bind(chkEncrypt, &TQXXenoCodeAction::EncryptStrings);
    Bind(lbWatermarks, &TQXXenoCodeAction::Watermarks);
}

void TXenoCodeFrame::BindPresets()
{
    for (const TPreset& Entry : Presets)
        cbPresets.Items.emplace_back(Entry.Caption);
    BindMember(
        cbPresets, &TQXXenoCodeAction::Preset,
        [this](TXenoCodePreset Value) {
            for (const TPreset& Entry : Presets)
                if (Entry.Preset == Value)
                    cbPresets.SelectText(Entry.Caption);
        },
        [this](TXenoCodePreset& Value) {
            if (const auto Selected = cbPresets.Selected())
                Value = Presets[*Selected].Preset;
        });
}

void TXenoCodeFrame::SetUpWatermarks()
{
    Buttons.btnAdd.OnClick = [this] { AddWatermark(); };
    Buttons.btnEdit.OnClick = lbWatermarks.OnDoubleClick = [this] { EditWatermark(); };
    Buttons.btnDelete.OnClick = [this] { DeleteSelected(lbWatermarks); };
    EnableWhile(Buttons.btnAdd, [this] { return lbWatermarks.Items.size() < MostWatermarks; });
    for (TButton* Button : {&Buttons.btnEdit, &Buttons.btnDelete})
        EnableWhile(*Button, [this] { return !lbWatermarks.Selected.empty(); });
}

TXenoCodeVersion TXenoCodeFrame::Version() const
{
    if (rbXenoCode2004.IsChecked())
        return XenoCode2004;
    return rbXenoCode2005.IsChecked() ? XenoCode2005 : XenoCode2006;
}

/// An empty field begins in the folder of the configuration.
void TXenoCodeFrame::BrowseOutFolder()
{
    std::string Folder =
        edOutFolder.Text.empty() ? Paths::Folder(ExpandedAtDesignTime(edConfig.Text)) : edOutFolder.Text;
    if (QXBrowseForDirectory(Folder, "Select Assembly Output Folder"))
        edOutFolder.Change(Folder);
}

/// An empty field begins beside the configuration.
void TXenoCodeFrame::BrowseMapFile()
{
    std::string File = edMapFile.Text;
    const std::string Config = ExpandedAtDesignTime(edConfig.Text);
    if (File.empty() && !Config.empty())
        File = Paths::ChangeExtension(Config, ".map");
    if (QXBrowseForFile(File, Filters[Version()].Map, "Select File"))
        edMapFile.Change(File);
}

/// Asks for a text that is not in the list yet; true if one was given.
bool TXenoCodeFrame::AskWatermark(std::string& Text) const
{
    const auto& Items = lbWatermarks.Items;
    return QXInputQuery("Watermarks", "Name:", Text) && !Text.empty() &&
           std::find(Items.begin(), Items.end(), Text) == Items.end();
}

void TXenoCodeFrame::AddWatermark()
{
    if (std::string Text; AskWatermark(Text))
        AddSelected(lbWatermarks, std::move(Text));
}

void TXenoCodeFrame::EditWatermark()
{
    if (lbWatermarks.Selected.empty())
        return;
    std::string& Line = lbWatermarks.Items[lbWatermarks.Selected.front()];
    if (std::string Text = Line; AskWatermark(Text))
        Line = std::move(Text);
}
