// Property pages: how the host works with the forms that packages give for their actions and options.
#pragma once

#include "host/QXAction.h"
#include "host/QXBindings.h"
#include "host/QXOptions.h"

#include <memory>

/// What the host asks of a page of an action. InitPage comes before the first ReadActionData.
class IQXActionPage
{
public:
    static constexpr std::string_view Identifier = "dcbf5e68-5e30-4319-8c5b-2ddcd2a6eb49";
    virtual ~IQXActionPage() = default;
    virtual void InitFrame() = 0;
    /// Prepares the page for the action.
    virtual void InitPage(TCustomQXAction& Action) = 0;
    virtual void OnPageActivate() = 0;
    virtual void OnPageDeActivate() = 0;
    /// Copies the properties into the controls.
    virtual void ReadActionData(TCustomQXAction& Action) = 0;
    /// Copies the controls into the properties.
    virtual void WriteActionData(TCustomQXAction& Action) = 0;
    /// The tab's caption, where "&&" stands for "&".
    [[nodiscard]] virtual std::string PageName() const = 0;
};

/// A page that can tell whether what the user gave will do.
class IQXPageValidation
{
public:
    static constexpr std::string_view Identifier = "23808bed-eb87-47bb-99a4-9414c2f27d19";
    virtual ~IQXPageValidation() = default;
    /// Shows the first problem and gives False, or True.
    [[nodiscard]] virtual bool Validate() = 0;
};

/// A page that completes the hints of its controls before they are shown.
class IQXPageHints
{
public:
    virtual ~IQXPageHints() = default;
    virtual void OnShowHint(std::string& HintText) = 0;
};

class IQXPageOwner;

/// What the host asks of a page of an options object.
class IQXOptionsPage
{
public:
    static constexpr std::string_view Identifier = "8be2f0bf-69f4-49dd-bec3-96b161b663f5";
    virtual ~IQXOptionsPage() = default;
    [[nodiscard]] virtual std::string GetPageName() const = 0;
    virtual void InitPage(IQXPageOwner& Owner) = 0;
    virtual void ReadOptions(TQXOptionsObject& Options) = 0;
    virtual void WriteOptions(TQXOptionsObject& Options) = 0;
    virtual void OnPageActivate() = 0;
};

/// Common to the pages of actions and of options.
class TPage : public TSurface
{
public:
    /// The help context of the page; 0: that of its action.
    [[nodiscard]] virtual int HelpContext() const { return 0; }

    /// The pages that are shown together, this one among them. Whoever makes them says so.
    [[nodiscard]] IQXPageOwner* Owner() const { return FOwner; }
    void SetOwner(IQXPageOwner* Owner) { FOwner = Owner; }

private:
    IQXPageOwner* FOwner = nullptr;
};

/// The pages of one object.
class IQXPageOwner
{
public:
    virtual ~IQXPageOwner() = default;
    [[nodiscard]] virtual std::vector<TPage*> Pages() const = 0;
};

/// Base of the pages of actions: does what the bindings say and nothing else.
class TFrame : public TPage, public IQXActionPage
{
public:
    void InitFrame() override {}
    void InitPage(TCustomQXAction&) override {}
    void OnPageActivate() override {}
    void OnPageDeActivate() override {}
    void ReadActionData(TCustomQXAction& Action) override { ReadBindings(Action); }
    void WriteActionData(TCustomQXAction& Action) override { WriteBindings(Action); }
};

/// Base of the pages of options objects, likewise.
class TOptionsFrame : public TPage, public IQXOptionsPage
{
public:
    void InitPage(IQXPageOwner&) override {}
    void ReadOptions(TQXOptionsObject& Options) override { ReadBindings(Options); }
    void WriteOptions(TQXOptionsObject& Options) override { WriteBindings(Options); }
    void OnPageActivate() override {}
};

/// What the host knows of a page class.
struct TQXPageClass
{
    std::string_view ClassName; ///< a literal
    std::unique_ptr<TPage> (*Create)() = nullptr;
};

/// The record of a page class.
template <typename T> constexpr TQXPageClass QXPageClass(std::string_view ClassName)
{
    return {ClassName, []() -> std::unique_ptr<TPage> { return std::make_unique<T>(); }};
}
