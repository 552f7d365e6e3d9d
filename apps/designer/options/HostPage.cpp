#include "apps/designer/options/HostPage.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"

#include <QFormLayout>
#include <QLabel>

#include <limits>

namespace
{
constexpr std::string_view Table = "host";
constexpr std::string_view DotNetTable = "dotnet";

QString AskForRegistry(QWidget* Parent, const QString& Old)
{
    std::string File = FromQt(Old);
    const TFileQuestion Question{.Title = THostPage::tr("Registry File"),
                                 .Filter = THostPage::tr("Registry Exports (*.reg)|*.reg|All Files (*)|*"),
                                 .MustExist = true};
    return FileDialogs::AskForFile(Parent, Question, File) ? ToQt(File) : Old;
}

QString AskForWindows(QWidget* Parent, const QString& Old)
{
    std::string Folder = FromQt(Old);
    return FileDialogs::AskForFolder(Parent, THostPage::tr("Windows Folder"), Folder) ? ToQt(Folder) : Old;
}
} // namespace

THostPage::THostPage(const TOptionsFile& File)
    : FRegistry(new TTextField(this, [this](const QString& Old) { return AskForRegistry(this, Old); })),
      FWindowsDir(new TTextField(this, [this](const QString& Old) { return AskForWindows(this, Old); })),
      FScriptTimeout(new QSpinBox), FDetectDotNet(new QCheckBox(tr("&Look for .NET versions on this machine"))),
      FBefore(ValuesOf(File))
{
    FRegistry->setToolTip(tr("An export of the registry that stands for it outside Windows"));
    FWindowsDir->setToolTip(tr("The folder that stands for that of Windows"));
    FRegistry->Edit().setPlaceholderText(tr("none"));
    FWindowsDir->Edit().setPlaceholderText(tr("none"));
    FScriptTimeout->setRange(1, std::numeric_limits<int>::max());
    FScriptTimeout->setSuffix(tr(" s"));
    FScriptTimeout->setToolTip(tr("A script that runs longer is stopped"));
    FDetectDotNet->setToolTip(tr("Otherwise only those count that the options file names"));
    auto* Form = new QFormLayout(this);
    Form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    Form->addRow(tr("&Registry file"), FRegistry);
    Form->addRow(tr("&Windows folder"), FWindowsDir);
    Form->addRow(tr("Time limit of &scripts"), FScriptTimeout);
    Form->addRow(QString(), FDetectDotNet);
    auto* Place = new QLabel(tr("All options are stored in %1").arg(ToQt(File.FileName())));
    Place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Place->setWordWrap(true);
    Place->setForegroundRole(QPalette::PlaceholderText);
    Form->addRow(Place);
    NameFields();
    FRegistry->SetText(ToQt(FBefore.Registry));
    FWindowsDir->SetText(ToQt(FBefore.WindowsDir));
    FScriptTimeout->setValue(FBefore.ScriptTimeout);
    FDetectDotNet->setChecked(FBefore.DetectDotNet);
}

void THostPage::NameFields()
{
    FRegistry->setObjectName(QStringLiteral("registry"));
    FWindowsDir->setObjectName(QStringLiteral("windows_dir"));
    FScriptTimeout->setObjectName(QStringLiteral("script_timeout"));
    FDetectDotNet->setObjectName(QStringLiteral("detect"));
}

/// The texts as they stand there: a path is not made absolute by looking at it.
THostPage::TValues THostPage::ValuesOf(const TOptionsFile& File)
{
    return {File.ReadString(Table, "registry").value_or(""), File.ReadString(Table, "windows_dir").value_or(""),
            File.Host().ScriptTimeout, File.DetectDotNet()};
}

THostPage::TValues THostPage::Values() const
{
    return {FromQt(FRegistry->Text()), FromQt(FWindowsDir->Text()), FScriptTimeout->value(),
            FDetectDotNet->isChecked()};
}

bool THostPage::IsChanged() const
{
    return Values() != FBefore;
}

void THostPage::Store(TOptionsFile& File) const
{
    const TValues New = Values();
    if (New.Registry != FBefore.Registry)
        File.WriteString(Table, "registry", New.Registry);
    if (New.WindowsDir != FBefore.WindowsDir)
        File.WriteString(Table, "windows_dir", New.WindowsDir);
    if (New.ScriptTimeout != FBefore.ScriptTimeout)
        File.WriteInteger(Table, "script_timeout", New.ScriptTimeout);
    TQXProperty Detect;
    Detect.Name = "detect";
    Detect.Type = TQXPropertyType::Boolean;
    if (New.DetectDotNet != FBefore.DetectDotNet)
        File.Write(DotNetTable, Detect, New.DetectDotNet);
}
