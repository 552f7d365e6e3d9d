#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

class TQXPersistent;

/// A value that passes between the host and a script. An object is borrowed, alive during the call.
using TQXVariant = std::variant<std::monostate, bool, int, std::string, TQXPersistent*>;

/// An object with methods for scripts that change more of it than its properties.
class IQXScriptTarget
{
public:
    virtual ~IQXScriptTarget();
    /// Gives what puts the object back as it is now, for a script that fails later.
    [[nodiscard]] virtual std::function<void()> RememberState() = 0;
    /// About how many bytes it holds of what methods gave it; they count as memory of the script.
    [[nodiscard]] virtual std::size_t StateSize() const = 0;
};

/// Type of a script parameter; `None` takes whatever it is given.
enum class TQXParamType { None, String, Boolean, Integer };

/// A parameter of a script: a global variable of the script while it runs.
class TQXScriptParam
{
public:
    void SetName(std::string AName) { FName = std::move(AName); }
    void SetIsOutput(bool AIsOutput) { FIsOutput = AIsOutput; }
    void SetParamType(TQXParamType AType) { FType = AType; }
    /// The name of a registered type, for parameters that are objects.
    void SetParamTypeName(std::string ATypeName) { FTypeName = std::move(ATypeName); }
    void SetValue(TQXVariant AValue) { FValue = std::move(AValue); }

    [[nodiscard]] const std::string& Name() const { return FName; }
    /// Whether the host reads the variable back when the script has ended.
    [[nodiscard]] bool IsOutput() const { return FIsOutput; }
    [[nodiscard]] TQXParamType Type() const { return FType; }
    [[nodiscard]] const std::string& TypeName() const { return FTypeName; }
    [[nodiscard]] const TQXVariant& Value() const { return FValue; }

private:
    std::string FName;
    bool FIsOutput = false;
    TQXParamType FType = TQXParamType::None;
    std::string FTypeName;
    TQXVariant FValue;
};

/// A script of an action: declared by the action's class, its text comes from the project.
class TQXScript
{
public:
    explicit TQXScript(std::string Name) : FName(std::move(Name)) {}

    [[nodiscard]] const std::string& Name() const { return FName; }
    [[nodiscard]] const std::string& Text() const { return FText; }
    void SetText(std::string Text) { FText = std::move(Text); }

    TQXScriptParam& AddParam() { return FParams.emplace_back(); }
    /// Adds a parameter of this name and type.
    TQXScriptParam& AddParam(std::string Name, TQXParamType Type = TQXParamType::None);
    [[nodiscard]] std::vector<TQXScriptParam>& Params() { return FParams; }
    /// The parameter of this name, or null.
    [[nodiscard]] TQXScriptParam* FindParam(std::string_view Name);
    /// Sets the value of the parameter of this name, if there is one.
    void SetValue(std::string_view Name, TQXVariant Value);

private:
    std::string FName;
    std::string FText;
    std::vector<TQXScriptParam> FParams;
};
