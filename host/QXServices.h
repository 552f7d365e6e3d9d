// What the host lets a package register and look up. Each accessor is asked anew for each use.
#pragma once

#include "host/QXAction.h"
#include "host/QXForms.h"
#include "host/QXOptions.h"
#include "host/QXPages.h"
#include "host/QXScript.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class IRegistry;

/// What the host knows of an action class without an object of it.
struct TQXActionClass
{
    std::string ClassName; ///< the `type` in project files
    std::string ActionName;
    int HelpTopicID = 0;
    std::string QuickHelpFilename;
    std::function<std::unique_ptr<TCustomQXAction>()> Create;
};

/// The class record of an action class with the class operations GetActionName, GetHelpTopicID and
/// GetQuickHelpFilename.
template <typename T> TQXActionClass QXActionClass(std::string ClassName)
{
    return {std::move(ClassName), T::GetActionName(), T::GetHelpTopicID(), T::GetQuickHelpFilename(),
            [] { return std::make_unique<T>(); }};
}

/// What the host knows of an options class without an object of it.
struct TQXOptionsClass
{
    std::string ClassName;
    std::string Name;
    std::string Category;
    std::string OptionKey; ///< its table in the options file
    std::function<std::unique_ptr<TQXOptionsObject>()> Create;
};

/// The class record of an options class with the class operations GetName, GetCategory and GetOptionKey.
template <typename T> TQXOptionsClass QXOptionsClass(std::string ClassName)
{
    return {std::move(ClassName), T::GetName(), T::GetCategory(), T::GetOptionKey(),
            [] { return std::make_unique<T>(); }};
}

/// The editor of a property that names a file: what its dialog asks for.
class TFileNameEdit
{
public:
    virtual ~TFileNameEdit();
    [[nodiscard]] virtual std::string GetDefaultExtension() const = 0;
    /// Pairs of caption and masks, all parted by "|".
    [[nodiscard]] virtual std::string GetFilter() const = 0;
    [[nodiscard]] virtual std::string GetDialogTitle() const = 0;
};

/// What the host knows of a property editor class.
struct TQXPropertyEditorClass
{
    std::string ClassName;
    std::function<std::unique_ptr<TFileNameEdit>()> Create;
};

/// A registered action class.
struct TQXActionRegistration
{
    std::string DisplayName;
    std::string Category;
    TQXActionClass ActionClass;
    std::string ImageName;
};

class IQXActionServices
{
public:
    virtual ~IQXActionServices() = default;
    virtual void RegisterAction(std::string DisplayName, std::string Category, TQXActionClass ActionClass,
                                std::string ImageName) = 0;
    /// Adds pages behind those that the action class has. Design time only.
    virtual void RegisterActionPages(std::string_view ActionClassName, std::span<const TQXPageClass> Pages) = 0;
    /// Gives a property of an action class an editor of its own. Design time only.
    virtual void RegisterPropertyEditor(TQXPropertyType PropertyType, std::string_view ActionClassName,
                                        std::string PropertyName, TQXPropertyEditorClass Editor) = 0;
    /// A package tells that it could not register all that it has: the host does not work with a part of it.
    virtual void RegistrationFailed(std::string_view Reason) = 0;
    /// All registered actions, in order of registration.
    [[nodiscard]] virtual std::span<const TQXActionRegistration> Actions() const = 0;
    /// The action registered for this class name, or null.
    [[nodiscard]] virtual const TQXActionRegistration* FindAction(std::string_view ClassName) const = 0;
    /// The pages of an action class, in order.
    [[nodiscard]] virtual std::span<const TQXPageClass> ActionPages(std::string_view ActionClassName) const = 0;
    /// The editor of a property, or null.
    [[nodiscard]] virtual const TQXPropertyEditorClass* FindPropertyEditor(std::string_view ActionClassName,
                                                                           std::string_view PropertyName) const = 0;
};

/// A registered options class.
struct TQXOptionsRegistration
{
    TQXOptionsClass OptionsClass;
    std::string ImageName;
};

class IQXOptionsServices
{
public:
    virtual ~IQXOptionsServices() = default;
    virtual void RegisterOptions(TQXOptionsClass OptionsClass, std::string ImageName) = 0;
    /// Adds pages behind those that the options class has. Design time only.
    virtual void RegisterOptionsPages(std::string_view OptionsClassName, std::span<const TQXPageClass> Pages) = 0;
    [[nodiscard]] virtual std::span<const TQXOptionsRegistration> Options() const = 0;
    /// The pages of an options class, in order.
    [[nodiscard]] virtual std::span<const TQXPageClass> OptionsPages(std::string_view OptionsClassName) const = 0;
    /// The one object of a registered options class, made and loaded when first asked for, or null.
    [[nodiscard]] virtual TQXOptionsObject* GetOptions(std::string_view Category, std::string_view Name) = 0;
};

/// A parameter of a script-callable method: its name and type.
struct TQXMethodParam
{
    std::string Name;
    TQXParamType Type = TQXParamType::None;
};

/// A method that scripts can call on objects of one class. Call gets an object for which IsMethodOf holds, and as many
/// arguments as Params names, of their types.
struct TQXScriptMethod
{
    std::string ClassName;
    std::string Name;
    std::vector<TQXMethodParam> Params;
    std::function<TQXVariant(TQXPersistent& Object, std::span<const TQXVariant> Arguments)> Call;
    std::function<bool(const TQXPersistent& Object)> IsMethodOf; ///< whether Object is of the class
};

/// A method of the class T, whose Call gets a T and the arguments.
template <typename T, typename TCall>
TQXScriptMethod QXScriptMethod(std::string ClassName, std::string Name, std::vector<TQXMethodParam> Params, TCall Call)
{
    return {std::move(ClassName), std::move(Name), std::move(Params),
            [Call = std::move(Call)](TQXPersistent& Object, std::span<const TQXVariant> Arguments) -> TQXVariant {
                return Call(static_cast<T&>(Object), Arguments);
            },
            [](const TQXPersistent& Object) { return dynamic_cast<const T*>(&Object) != nullptr; }};
}

class IQXScriptingServices
{
public:
    virtual ~IQXScriptingServices() = default;
    virtual void RegisterMethod(TQXScriptMethod Method) = 0;
    /// A global object of every script, fetched when a script first uses it.
    virtual void RegisterGlobal(std::string Name, std::function<TQXVariant()> Getter) = 0;
    /// An enumeration whose element names scripts may use.
    virtual void RegisterType(std::string Name, std::span<const std::string_view> Elements) = 0;
    /// Wraps an object for scripts: its published properties and registered methods.
    [[nodiscard]] virtual TQXVariant ObjectToVariant(TQXPersistent& Object) = 0;
};

/// What a program that edits projects offers to pages and editors.
class IQXDesignApplicationServices
{
public:
    virtual ~IQXDesignApplicationServices() = default;
    /// Replaces the variables of the edited project; throws std::runtime_error with the reason.
    [[nodiscard]] virtual std::string ExpandDesignTime(std::string_view Expression) = 0;
    /// Shows a dialog. A program without a designer has none: it counts as cancelled.
    [[nodiscard]] virtual TQXAnswer ShowDialog(const TQXDialog& Dialog) = 0;
    /// Shows a form until it is closed.
    virtual void ShowForm(TForm& Form) = 0;
};

[[nodiscard]] IQXActionServices& QXActionServices();
[[nodiscard]] IQXOptionsServices& QXOptionsServices();
[[nodiscard]] IQXScriptingServices& QXScriptingServices();
[[nodiscard]] IQXDesignApplicationServices& QXDesignApplicationServices();
/// The Windows registry, or the export file that stands for it. Throws the host's error when the file
/// cannot be read.
[[nodiscard]] const IRegistry& QXRegistry();
