#pragma once

#include <memory>
#include <string>
#include <string_view>

/// How AddArgument brings a value to the tool. The numbers are those that packages have always passed.
enum TQXArgumentMode {
    amPlain = 0,  ///< unchanged, whatever it holds
    amNormal = 2, ///< quoted if it holds a blank
    amQuoted = 4, ///< always quoted
};

/// An argument that was added, with its switch and as the tool gets it.
class IArgument
{
public:
    virtual ~IArgument() = default;
    [[nodiscard]] virtual const std::string& GetText() const = 0;
};

/// Collects a tool's arguments and joins them to one command line.
class ICommandLineBuilder
{
public:
    virtual ~ICommandLineBuilder() = default;
    /// What stands between switch and value from now on; one blank in a new builder.
    virtual void SetSwitchSeparator(std::string_view Text) = 0;
    /// What stands between arguments; one blank in a new builder.
    virtual void SetArgumentSeparator(std::string_view Text) = 0;
    /// Appends an argument. Switch is written unchanged; an empty Value adds nothing behind it. A value
    /// that its caller quoted is not quoted again.
    virtual const IArgument& AddArgument(std::string_view Switch, std::string_view Value = {},
                                         TQXArgumentMode Mode = amNormal) = 0;
    /// The arguments as one text.
    [[nodiscard]] virtual std::string GetCommandLineText() const = 0;
};

/// A builder without arguments.
[[nodiscard]] std::unique_ptr<ICommandLineBuilder> CreateCommandLineBuilder();
/// Adds the arguments that a user wrote in one text as they stand, if there are any. Line ends outside of double quotes
/// part them as blanks do.
void QXAddFreeText(ICommandLineBuilder& Builder, std::string_view Text);
