#include "apps/designer/editors/PropertyDelegate.h"

#include "apps/designer/QtText.h"
#include "apps/designer/dialogs/FileDialogs.h"
#include "apps/designer/editors/PropertyModel.h"
#include "apps/designer/editors/SetDialog.h"
#include "apps/designer/editors/TextDialog.h"
#include "apps/designer/editors/TextField.h"
#include "host/QXServices.h"

#include <QComboBox>
#include <QSpinBox>

#include <limits>

namespace
{
/// The text that a field shows for a value, and back. A list has a line for each item, a list in one text too.
QString FieldText(const TQXProperty& Property)
{
    const TQXPropertyValue Value = Property.Read();
    if (const auto* Text = std::get_if<std::string>(&Value))
        return ToQt(*Text);
    QStringList Lines;
    for (const std::string& Item : std::get<std::vector<std::string>>(Value))
        Lines.append(ToQt(Item));
    return Lines.join(QLatin1Char('\n'));
}

TQXPropertyValue FieldValue(const TQXProperty& Property, const QString& Text)
{
    if (Property.Type == TQXPropertyType::String)
        return FromQt(Text);
    std::vector<std::string> Items;
    for (const QString& Line : Text.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        Items.push_back(FromQt(Line));
    return Items;
}

QString AskForItems(QWidget* Parent, const TQXProperty& Property, const QString& Text)
{
    const QString Title = ToQt(Property.Name);
    if (Property.Kind != TQXTextKind::List)
        return AskForLines(Parent, Title, TPropertyDelegate::tr("&Text:"), Text);
    TStringList Items;
    Items.SetDelimitedText(FromQt(Text), Property.Separator, true);
    QStringList Lines;
    for (const std::string& Item : Items)
        Lines.append(ToQt(Item));
    const QString Old = Lines.join(QLatin1Char('\n'));
    const QString New = AskForLines(Parent, Title, TPropertyDelegate::tr("&One entry per line:"), Old);
    if (New == Old)
        return Text;
    Items.Clear();
    for (const QString& Line : New.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        Items.Add(FromQt(Line));
    return ToQt(Items.DelimitedText(Property.Separator));
}

const TQXProperty& PropertyAt(const QModelIndex& Index)
{
    return static_cast<const TPropertyModel*>(Index.model())->Property(Index.row());
}

QWidget* MakeChoice(QWidget* Parent, const TQXProperty& Property)
{
    auto* Box = new QComboBox(Parent);
    for (const std::string_view Element : Property.Elements)
        Box->addItem(ToQt(Element));
    return Box;
}

QWidget* MakeNumber(QWidget* Parent)
{
    auto* Box = new QSpinBox(Parent);
    Box->setRange(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    return Box;
}
} // namespace

QWidget* TPropertyDelegate::createEditor(QWidget* Parent, const QStyleOptionViewItem& /*Option*/,
                                         const QModelIndex& Index) const
{
    const TQXProperty& Property = PropertyAt(Index);
    QWidget* Editor = nullptr;
    switch (Property.Type)
    {
    case TQXPropertyType::Boolean:
        break; // a box in the cell
    case TQXPropertyType::Enumeration:
        Editor = MakeChoice(Parent, Property);
        break;
    case TQXPropertyType::Integer:
        Editor = MakeNumber(Parent);
        break;
    case TQXPropertyType::String:
    case TQXPropertyType::Set:
    case TQXPropertyType::StringList:
        Editor = MakeTextEditor(Parent, Property);
        break;
    }
    if (Editor)
        Editor->setAccessibleName(ToQt(Property.Name));
    return Editor;
}

QWidget* TPropertyDelegate::MakeTextEditor(QWidget* Parent, const TQXProperty& Property) const
{
    auto* Field = new TTextField(
        Parent, [this, Parent, &Property](const QString& Text) { return Browse(Parent, Property, Text); });
    Field->Edit().setFrame(false);
    if (Property.IsSecret)
        Field->Edit().setEchoMode(QLineEdit::Password);
    if (Property.Type == TQXPropertyType::Set)
        Field->Edit().setReadOnly(true);
    connect(Field, &TTextField::Answered, this, [this, Field] {
        auto* Self = const_cast<TPropertyDelegate*>(this);
        emit Self->commitData(Field);
        emit Self->closeEditor(Field);
    });
    return Field;
}

bool TPropertyDelegate::AskForPath(QWidget* Parent, const TQXProperty& Property, std::string& Path) const
{
    if (Property.Kind == TQXTextKind::Folder)
        return FileDialogs::AskForFolder(Parent, ToQt(Property.Name), Path);
    TFileQuestion Question{.Title = ToQt(Property.Name)};
    if (const TQXPropertyEditorClass* Class = QXActionServices().FindPropertyEditor(ClassName, Property.Name))
    {
        const auto Editor = Class->Create();
        Question = {ToQt(Editor->GetDialogTitle()), ToQt(Editor->GetFilter()), ToQt(Editor->GetDefaultExtension())};
    }
    return FileDialogs::AskForFile(Parent, Question, Path);
}

QString TPropertyDelegate::Browse(QWidget* Parent, const TQXProperty& Property, const QString& Text) const
{
    if (Property.Type == TQXPropertyType::Set)
        return AskForSet(Parent, Property, Text);
    if (Property.Type == TQXPropertyType::StringList ||
        (Property.Kind != TQXTextKind::File && Property.Kind != TQXTextKind::Folder))
        return AskForItems(Parent, Property, Text);
    std::string Path = FromQt(Text);
    if (Paths.ToPath)
        Path = Paths.ToPath(Path);
    if (!AskForPath(Parent, Property, Path))
        return Text;
    return ToQt(Paths.ToText ? Paths.ToText(Path) : Path);
}

void TPropertyDelegate::setEditorData(QWidget* Editor, const QModelIndex& Index) const
{
    const TQXProperty& Property = PropertyAt(Index);
    if (auto* Box = qobject_cast<QComboBox*>(Editor))
        Box->setCurrentText(ToQt(std::get<std::string>(Property.Read())));
    else if (auto* Number = qobject_cast<QSpinBox*>(Editor))
        Number->setValue(std::get<int>(Property.Read()));
    else if (auto* Field = qobject_cast<TTextField*>(Editor))
        Field->SetText(FieldText(Property));
}

void TPropertyDelegate::setModelData(QWidget* Editor, QAbstractItemModel* Model, const QModelIndex& Index) const
{
    auto& Properties = static_cast<TPropertyModel&>(*Model);
    if (const auto* Box = qobject_cast<QComboBox*>(Editor))
        Properties.Write(Index.row(), FromQt(Box->currentText()));
    else if (const auto* Number = qobject_cast<QSpinBox*>(Editor))
        Properties.Write(Index.row(), Number->value());
    else if (const auto* Field = qobject_cast<TTextField*>(Editor))
        Properties.Write(Index.row(), FieldValue(Properties.Property(Index.row()), Field->Text()));
}

void TPropertyDelegate::updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Option,
                                             const QModelIndex& /*Index*/) const
{
    Editor->setGeometry(Option.rect);
}
