#include "apps/designer/editors/RunPage.h"

#include "apps/designer/QtText.h"
#include "apps/designer/Theme.h"
#include "apps/designer/document/ActionEdits.h"
#include "host/QXExecuteAction.h"

#include <QFormLayout>

#include <limits>

TRunPage::TRunPage(TProjectDocument& Document)
    : FDocument(Document), FName(new QLineEdit), FEnabled(new QCheckBox(tr("Ena&bled"))), FGroup(new QLineEdit),
      FWhen(new QLineEdit), FOnFailure(new QComboBox), FTimeout(new QSpinBox), FArguments(new QLineEdit),
      FReason(new QLabel)
{
    FGroup->setPlaceholderText(tr("none"));
    FWhen->setPlaceholderText(tr("always; a test such as  %Config% == \"Release\""));
    FOnFailure->addItems({tr("Stop the run"), tr("Go on with the next action")});
    FTimeout->setRange(0, std::numeric_limits<int>::max());
    FTimeout->setSuffix(tr(" s"));
    FTimeout->setSpecialValueText(tr("no limit"));
    FArguments->setPlaceholderText(tr("none; put behind those of the action's tool"));
    FReason->setWordWrap(true);

    auto* Form = new QFormLayout(this);
    Form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    Form->addRow(tr("&Name"), FName);
    Form->addRow(QString(), FEnabled);
    Form->addRow(tr("&Group"), FGroup);
    Form->addRow(tr("Run &when"), FWhen);
    Form->addRow(tr("&On failure"), FOnFailure);
    Form->addRow(tr("&Time limit"), FTimeout);
    Form->addRow(tr("&More arguments"), FArguments);
    Form->addRow(FReason);

    // As the project file calls them.
    const std::pair<QWidget*, const char*> Names[] = {
        {FName, "name"},       {FEnabled, "enabled"},      {FGroup, "group"},        {FWhen, "when"},
        {FTimeout, "timeout"}, {FOnFailure, "on_failure"}, {FArguments, "arguments"}};
    for (const auto& [Field, Name] : Names)
        Field->setObjectName(QString::fromLatin1(Name));
    ChangeText(*FName, tr("Rename"), &TProjectAction::Name);
    ChangeText(*FGroup, tr("Group"), &TProjectAction::Group);
    ChangeText(*FWhen, tr("Run When"), &TProjectAction::When);
    ChangeText(*FArguments, tr("More Arguments"), &TProjectAction::Arguments);
    connect(FEnabled, &QCheckBox::clicked, this, [this](bool Enabled) {
        Change(Enabled ? tr("Enable") : tr("Disable"), [=](TProjectAction& Action) { Action.Enabled = Enabled; });
    });
    connect(FOnFailure, &QComboBox::activated, this, [this](int Index) {
        Change(tr("On Failure"), [=](TProjectAction& Action) { Action.OnFailure = static_cast<TOnFailure>(Index); });
    });
    connect(FTimeout, &QSpinBox::editingFinished, this, [this] {
        Change(tr("Time Limit"),
               [Seconds = FTimeout->value()](TProjectAction& Action) { Action.TimeoutSeconds = Seconds; });
    });
}

void TRunPage::ChangeText(QLineEdit& Field, const QString& Name, std::string TProjectAction::*Member)
{
    connect(&Field, &QLineEdit::editingFinished, this, [this, &Field, Name, Member] {
        Change(Name, [&](TProjectAction& Action) { Action.*Member = FromQt(Field.text()); });
    });
}

/// A field that was left as it was makes no step. The reason against a change stays beside what the user wrote.
void TRunPage::Change(const QString& Name, const std::function<void(TProjectAction&)>& Edit)
{
    if (FPlace < 0 || FPlace >= FDocument.Count())
        return;
    const QString When = FWhen->text();
    const QString Reason =
        FDocument.Change(Name, [&](TProject& Project) { return ActionEdits::Apply(Project, {FPlace}, Edit); });
    FReason->setText(Reason);
    QPalette Palette = FReason->palette();
    Palette.setColor(QPalette::WindowText, Themes::Colour(Themes::TMeaning::Error, palette()));
    FReason->setPalette(Palette);
    if (!Reason.isEmpty())
        FWhen->setText(When);
}

void TRunPage::Show(int Place)
{
    FPlace = Place;
    const TProjectAction& Action = FDocument.Action(Place);
    FName->setText(ToQt(Action.Name));
    FEnabled->setChecked(Action.Enabled);
    FGroup->setText(ToQt(Action.Group));
    FWhen->setText(ToQt(Action.When));
    FOnFailure->setCurrentIndex(static_cast<int>(Action.OnFailure));
    FTimeout->setValue(Action.TimeoutSeconds);
    FArguments->setText(ToQt(Action.Arguments));
    FArguments->setEnabled(dynamic_cast<const TQXExecuteAbstractAction*>(Action.Object.get()) != nullptr);
    FReason->clear();
    setEnabled(!FDocument.Project().IsIncluded(Action));
}

bool TRunPage::Select(const QString& Key)
{
    auto* Field = findChild<QWidget*>(Key, Qt::FindDirectChildrenOnly);
    if (Field)
        Field->setFocus(Qt::OtherFocusReason);
    return Field != nullptr;
}
