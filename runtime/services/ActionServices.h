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
        FRegistered.Pages.Add(ActionClassName, Pages);
    }
    void RegisterPropertyEditor(TQXPropertyType PropertyType, std::string_view ActionClassName,
                                std::string PropertyName, TQXPropertyEditorClass Editor) override;
    /// The first reason stays.
    void RegistrationFailed(std::string_view Reason) override;
    [[nodiscard]] const std::string& RegistrationFailure() const { return FRegistered.Failure; }
    [[nodiscard]] std::span<const TQXActionRegistration> Actions() const override;
    [[nodiscard]] const TQXActionRegistration* FindAction(std::string_view ClassName) const override;
    [[nodiscard]] std::span<const TQXPageClass> ActionPages(std::string_view ActionClassName) const override;
    [[nodiscard]] const TQXPropertyEditorClass* FindPropertyEditor(std::string_view ActionClassName,
                                                                   std::string_view PropertyName) const override;

    struct TPropertyEditor
    {
        TQXPropertyType PropertyType;
        std::string ActionClassName;
        std::string PropertyName;
        TQXPropertyEditorClass Editor;
    };
    /// All that packages have registered.
    struct TRegistered
    {
        std::vector<TQXActionRegistration> Actions;
        TClassPages Pages;
        std::vector<TPropertyEditor> Editors;
        std::string Failure;
    };
    [[nodiscard]] const TRegistered& Registered() const { return FRegistered; }
    void Restore(TRegistered Registered) { FRegistered = std::move(Registered); }

private:
    [[nodiscard]] const TQXActionRegistration* Lookup(std::string_view ClassName) const;

    std::function<void()> FBeforeLookUp;
    TRegistered FRegistered;
};
