#pragma once

#include "host/QXServices.h"
#include "runtime/services/ClassPages.h"

#include <functional>
#include <string>
#include <vector>

/// The registered action classes and property editors.
class TActionServices final : public IQXActionServices
{
public:
    /// BeforeLookUp is called before each look-up: it registers what is not yet registered.
    explicit TActionServices(std::function<void()> BeforeLookUp) : FBeforeLookUp(std::move(BeforeLookUp)) {}

    /// Throws std::logic_error for a class that is registered already.
    void RegisterAction(std::string DisplayName, std::string Category, TQXActionClass ActionClass,
                        std::string ImageName) override;
    void RegisterActionPages(std::string_view ActionClassName, std::span<const TQXPageClass> Pages) override
    {
        FPages.Add(ActionClassName, Pages);
    }
    void RegisterPropertyEditor(TQXPropertyType PropertyType, std::string_view ActionClassName,
                                std::string PropertyName, TQXPropertyEditorClass Editor) override;
    /// The first reason stays.
    void RegistrationFailed(std::string_view Reason) override;
    [[nodiscard]] const std::string& RegistrationFailure() const { return FFailure; }
    [[nodiscard]] std::span<const TQXActionRegistration> Actions() const override;
    [[nodiscard]] const TQXActionRegistration* FindAction(std::string_view ClassName) const override;
    [[nodiscard]] std::span<const TQXPageClass> ActionPages(std::string_view ActionClassName) const override;
    [[nodiscard]] const TQXPropertyEditorClass* FindPropertyEditor(std::string_view ActionClassName,
                                                                   std::string_view PropertyName) const override;

private:
    struct TPropertyEditor
    {
        TQXPropertyType PropertyType;
        std::string ActionClassName;
        std::string PropertyName;
        TQXPropertyEditorClass Editor;
    };
    [[nodiscard]] const TQXActionRegistration* Lookup(std::string_view ClassName) const;

    std::function<void()> FBeforeLookUp;
    std::vector<TQXActionRegistration> FActions;
    TClassPages FPages;
    std::vector<TPropertyEditor> FEditors;
    std::string FFailure;
};
