// Values between the host and a script. What does not fit is raised in the script as an error that names What.
#pragma once

#include "host/QXProperties.h"
#include "host/QXScript.h"

#include <duktape.h>
#include <exception>
#include <string>
#include <string_view>

namespace ScriptValues
{
[[noreturn]] void Raise(duk_context* Context, duk_errcode_t Kind, const std::string& Message);

/// Calls the host for a script: its exceptions become the script's, and its time counts as the script's.
template <typename T> auto CallHost(duk_context* Context, const T& Call) -> decltype(Call())
{
    std::string Reason;
    QXCheckScriptLimits();
    try
    {
        return Call();
    }
    catch (const std::exception& Error)
    {
        Reason = Error.what();
    }
    Raise(Context, DUK_ERR_ERROR, Reason);
}

void PushText(duk_context* Context, std::string_view Text);
/// The text of any value, as String(value) gives it.
[[nodiscard]] std::string TextOf(duk_context* Context, duk_idx_t Index);
/// Lists are arrays that cannot be changed: a change would be one of a copy.
void PushProperty(duk_context* Context, const TQXPropertyValue& Value);
[[nodiscard]] TQXPropertyValue PropertyAt(duk_context* Context, duk_idx_t Index, const TQXProperty& Property);

/// A parameter's value; a typed one that was never set is empty. Name is how the script calls an object.
void PushVariant(duk_context* Context, const TQXVariant& Value, TQXParamType Type, std::string_view Name);
/// The argument of a method: of exactly its type.
[[nodiscard]] TQXVariant ArgumentAt(duk_context* Context, duk_idx_t Index, TQXParamType Type, std::string_view What);
/// The value of an output parameter when the script has ended, converted to its type.
[[nodiscard]] TQXVariant OutputAt(duk_context* Context, duk_idx_t Index, TQXParamType Type, std::string_view What);
} // namespace ScriptValues
