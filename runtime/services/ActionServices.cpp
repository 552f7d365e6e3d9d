#include "runtime/services/ActionServices.h"

#include <stdexcept>

TFileNameEdit::~TFileNameEdit() = default;

void TActionServices::RegisterAction(std::string DisplayName, std::string Category, TQXActionClass ActionClass,
                                     std::string ImageName)
{
    if (Lookup(ActionClass.ClassName))
        throw std::logic_error("The action class " + ActionClass.ClassName + " is registered twice");
    FRegistered.Actions.push_back(
        {std::move(DisplayName), std::move(Category), std::move(ActionClass), std::move(ImageName)});
}

void TActionServices::RegisterPropertyEditor(TQXPropertyType PropertyType, std::string_view ActionClassName,
                                             std::string PropertyName, TQXPropertyEditorClass Editor)
{
    FRegistered.Editors.push_back(
        {PropertyType, std::string(ActionClassName), std::move(PropertyName), std::move(Editor)});
}

void TActionServices::RegistrationFailed(std::string_view Reason)
{
    if (FRegistered.Failure.empty())
        FRegistered.Failure = Reason;
}

std::span<const TQXActionRegistration> TActionServices::Actions() const
{
    FBeforeLookUp();
    return FRegistered.Actions;
}

const TQXActionRegistration* TActionServices::FindAction(std::string_view ClassName) const
{
    FBeforeLookUp();
    return Lookup(ClassName);
}

const TQXActionRegistration* TActionServices::Lookup(std::string_view ClassName) const
{
    for (const TQXActionRegistration& Action : FRegistered.Actions)
        if (Action.ActionClass.ClassName == ClassName)
            return &Action;
    return nullptr;
}

std::span<const TQXPageClass> TActionServices::ActionPages(std::string_view ActionClassName) const
{
    FBeforeLookUp();
    return FRegistered.Pages.Of(ActionClassName);
}

const TQXPropertyEditorClass* TActionServices::FindPropertyEditor(std::string_view ActionClassName,
                                                                  std::string_view PropertyName) const
{
    FBeforeLookUp();
    for (const TPropertyEditor& Editor : FRegistered.Editors)
        if (Editor.ActionClassName == ActionClassName && Editor.PropertyName == PropertyName)
            return &Editor.Editor;
    return nullptr;
}
