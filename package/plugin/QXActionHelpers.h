// What actions do with their properties over and over: expand them, add them as arguments, ask for them.
#pragma once

#include "host/QXAction.h"
#include "host/QXCommandLineBuilder.h"

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

/// A property, the label under which its failed expansion is reported, and where the result goes.
struct TQXExpansion
{
    std::string_view Label;
    std::string_view Expression;
    std::string& Result;
};

/// Expands properties in order, up to the first that fails or gives an empty text. False: one did.
[[nodiscard]] bool ExpandRequired(const TCustomQXAction& Action, std::initializer_list<TQXExpansion> Properties);

/// Expands a property without which the tool cannot run, and adds it as switch and value. False: that failed.
[[nodiscard]] bool AddExpanded(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                               std::string_view Label, std::string_view Expression, TQXArgumentMode Mode = amNormal);
/// The same for a property that may be empty: nothing is added then.
[[nodiscard]] bool AddOptional(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                               std::string_view Label, std::string_view Expression, TQXArgumentMode Mode = amNormal);
/// Adds the arguments that a user wrote in one text as QXAddFreeText does. False: the expansion failed.
[[nodiscard]] bool AddFreeText(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Label,
                               std::string_view Expression);

/// Expands the path of a file that the tool reads, and adds it as switch and value in its spelling on disk. False: that
/// failed, or no file is there, which the log is told by this message with the path behind it.
[[nodiscard]] bool AddFile(const TCustomQXAction& Action, ICommandLineBuilder& Builder, std::string_view Switch,
                           std::string_view Label, std::string_view Expression, std::string_view NotThere);
/// Expands the names and values of lines name=value and gives them to Take in order; the value is that of the first
/// line with the name. Lines without a name count for nothing. False: an expansion failed or gave an empty text.
[[nodiscard]] bool ExpandProperties(const TCustomQXAction& Action, const TStringList& Lines,
                                    const std::function<void(const std::string& Name, const std::string& Value)>& Take);

/// Whether files and folders can be made at a path; false, after telling the log of the property that holds it, for a
/// drive where the system has none.
[[nodiscard]] bool CheckTarget(const TCustomQXAction& Action, std::string_view Property, std::string_view Path);

/// The folder that a user named for the tool to start in; empty, after a warning, if it does not expand to one.
[[nodiscard]] std::string ExpandStartDir(const TCustomQXAction& Action, std::string_view StartDir);

/// The folder part of a path in a property, with its delimiter; empty if it has none or does not expand.
[[nodiscard]] std::string ExpandFolderOf(const TCustomQXAction& Action, std::string_view Label,
                                         std::string_view Expression);

/// A path in double quotes as a tool gets it: a last backslash does not take the closing quote for itself.
[[nodiscard]] std::string QuotePath(const std::string& Path);

/// A switch that is there or not.
struct TQXFlag
{
    bool IsSet;
    std::string_view Switch;
};

/// Adds those that are set.
void AddFlags(ICommandLineBuilder& Builder, std::initializer_list<TQXFlag> Flags);

/// The text of an element in a table that has one for each element of the enumeration, in their order.
template <TQXEnumeration T, std::size_t N>
[[nodiscard]] constexpr std::string_view ElementText(const std::string_view (&Table)[N], T Element)
{
    static_assert(N == QXElements(T{}).size(), "a text for each element");
    return Table[static_cast<std::size_t>(Element)];
}

/// What validation asks for: whether it is there, and what is reported if not.
struct TQXRequirement
{
    TQXRequirement(bool AIsMet, std::string_view ALabel, std::string_view AMessage)
        : IsMet(AIsMet), Label(ALabel), Message(AMessage)
    {}
    /// A text that must not be empty.
    TQXRequirement(const std::string& Value, std::string_view ALabel, std::string_view AMessage)
        : TQXRequirement(!Value.empty(), ALabel, AMessage)
    {}

    bool IsMet;
    std::string_view Label;
    std::string_view Message;
};

/// Reports all that are not met, in order; true if there are none.
[[nodiscard]] bool Require(IQXActionValidationError& Errors, std::initializer_list<TQXRequirement> Requirements);
/// What validation reports.
struct TQXFinding
{
    std::string_view Label;
    std::string_view Message;
};

/// Reports a tool whose location, from the options, is empty, or else is no file; true if it lies there.
[[nodiscard]] bool RequireTool(IQXActionValidationError& Errors, const std::string& Exe, const TQXFinding& NotSet,
                               const TQXFinding& NotFound);

/// A tool's exit code as "$" and eight hexadecimal digits.
[[nodiscard]] std::string ExitCodeText(int ExitCode);
