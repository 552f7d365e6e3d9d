#pragma once

#include "host/QXProperties.h"
#include "host/QXScript.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Collects what validation finds; Label names the setting as users see it.
class IQXActionValidationError
{
public:
    virtual ~IQXActionValidationError() = default;
    virtual void AddError(std::string_view Label, std::string_view Message) = 0;
};

/// Which of its two pipes a tool wrote a line to.
enum class TQXOutputStream { StdOut, StdErr };

/// What the host does for one action while it runs. Actions reach it through the operations of
/// TCustomQXAction.
class IQXActionHost
{
public:
    virtual ~IQXActionHost() = default;
    /// Writes one line, or a text of several, to the log.
    virtual void SendMessage(std::string_view Text) = 0;
    /// Writes one line of a tool's output to the log.
    virtual void SendOutput(TQXOutputStream Stream, std::string_view Line) = 0;
    /// See TCustomQXAction.
    [[nodiscard]] virtual bool TryExpandExpression(std::string_view Label, std::string_view Expression,
                                                   std::string& Value, bool Required) = 0;
    [[nodiscard]] virtual std::string ExpandExpression(std::string_view Expression, bool Report) = 0;
    /// Runs a script with the values that its parameters hold and reads the outputs back. A failure
    /// has been reported when this returns false.
    [[nodiscard]] virtual bool ExecuteScript(TQXScript& Script) = 0;
    /// Gives the host a moment in long work without messages: it passes a wish to end on to the action.
    virtual void Poll() = 0;
    /// True: nothing may be started or rewritten, only shown.
    [[nodiscard]] virtual bool IsDryRun() const = 0;
    /// True: where an action's own way and that of the IDE differ, the IDE's holds.
    [[nodiscard]] virtual bool FollowsIDE() const = 0;
};

/// An action of a project: published properties, scripts and the step that does its work.
class TCustomQXAction : public TQXPersistent
{
public:
    ~TCustomQXAction() override;

    /// The host while it runs an action, else null: then messages go nowhere and expressions stand for themselves,
    /// as at design time.
    [[nodiscard]] static IQXActionHost* Host();
    /// Whether the host runs an action that may only show what it would start and write.
    [[nodiscard]] static bool IsDryRun();
    /// Whether the project of the action that the host runs asks for what the IDE would do.
    [[nodiscard]] static bool FollowsIDE();

    /// Writes one line to the log.
    void SendMessage(std::string_view Text) const;
    /// Replaces the host variables of Expression. False, also for an empty result with Required true:
    /// the host has reported it under Label, and the caller stops without a message of its own.
    [[nodiscard]] bool TryExpandExpression(std::string_view Label, std::string_view Expression, std::string& Value,
                                           bool Required) const;
    /// Replaces the host variables where no failure is expected: what cannot be expanded stays as it is,
    /// and Report true puts the reason into the log.
    [[nodiscard]] std::string ExpandExpression(std::string_view Expression, bool Report) const;

    /// Declares a script that projects may give a text to.
    TQXScript& AddScript(std::string Name);
    /// The script of this name, or null.
    [[nodiscard]] TQXScript* GetScriptByName(std::string_view Name) const;
    /// The script of this name, or null, also if it has no parameters or the project gives it no text.
    [[nodiscard]] TQXScript* FindScriptToRun(std::string_view Name) const;
    [[nodiscard]] const std::vector<std::unique_ptr<TQXScript>>& Scripts() const { return FScripts; }
    /// Runs a declared script. False if there is none or it failed, which the host has reported.
    bool ExecuteScript(std::string_view Name);
    /// Declares the parameters of a script of this action.
    virtual void InitialiseScriptParams(TQXScript& Script);

    /// The host has restored the stored properties of a new object; overrides call the inherited operation first.
    virtual void Loaded() {}

    /// Looks at the raw texts of the properties and reports every finding; true if there was none.
    [[nodiscard]] virtual bool Validate(IQXActionValidationError& Errors);
    /// Does the action's work; true is success.
    [[nodiscard]] virtual bool Execute() = 0;
    /// Adds the names of the properties that the designer does not list.
    virtual void GetHiddenProperties(TStringList& List) const;

    /// Whether the action can be ended while it works.
    [[nodiscard]] virtual bool CanTerminate() const { return true; }
    /// Asks the working action to end soon. The host calls it when the action next turns to it.
    virtual void TerminateAction() {}

    /// What the host calls an action that the user gave no name.
    [[nodiscard]] const std::string& Description() const { return FDescription; }
    void SetDescription(std::string Description) { FDescription = std::move(Description); }

private:
    std::string FDescription;
    std::vector<std::unique_ptr<TQXScript>> FScripts;
};

/// Base of the actions that do their work themselves.
class TQXAction : public TCustomQXAction
{
public:
    ~TQXAction() override;
};
