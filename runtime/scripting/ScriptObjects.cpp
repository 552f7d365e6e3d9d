#include "runtime/scripting/ScriptObjects.h"

#include "host/QXAction.h"
#include "runtime/NearestName.h"
#include "runtime/Runtime.h"
#include "runtime/actions/RunContext.h"
#include "runtime/scripting/ScriptHeap.h"
#include "runtime/scripting/ScriptValues.h"
#include "runtime/services/ScriptingServices.h"

#include <fmt/format.h>

#include <vector>

namespace
{
using ScriptValues::CallHost;
using ScriptValues::Raise;

// Scripts see a proxy. Its target has a place for every property, so that scripts can list them, and under names that
// no script can form the object itself and what the script calls it.
constexpr const char* ObjectKey = DUK_HIDDEN_SYMBOL("object");
constexpr const char* NameKey = DUK_HIDDEN_SYMBOL("name");
constexpr const char* HandlerKey = "handler";

/// The object that a method was called on.
TQXPersistent& ThisObject(duk_context* Context, std::string_view Method)
{
    duk_push_this(Context);
    TQXPersistent* Object = ScriptObjects::At(Context, -1);
    duk_pop(Context);
    if (!Object)
        Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" was called without its object", Method));
    return *Object;
}

const TCustomQXAction& ThisAction(duk_context* Context, std::string_view Method)
{
    const auto* Action = dynamic_cast<const TCustomQXAction*>(&ThisObject(Context, Method));
    if (!Action)
        Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" was called on what is not an action", Method));
    return *Action;
}

duk_ret_t SendMessage(duk_context* Context)
{
    const TCustomQXAction& Action = ThisAction(Context, "SendMessage");
    const std::string Text = ScriptValues::TextOf(Context, 0);
    CallHost(Context, [&] { Action.SendMessage(Text); });
    return 0;
}

/// In a script a failure is an error that it may catch, so the log gets nothing of it.
TExpansion Expand(const TCustomQXAction& Action, std::string_view Expression)
{
    if (const TRunContext* Run = TQXRuntime::RunningAction())
        return Run->Expand(Expression);
    return {true, Action.ExpandExpression(Expression, false), {}};
}

duk_ret_t ExpandExpression(duk_context* Context)
{
    const TCustomQXAction& Action = ThisAction(Context, "ExpandExpression");
    const std::string Expression = ScriptValues::TextOf(Context, 0);
    const TExpansion Expansion = CallHost(Context, [&] { return Expand(Action, Expression); });
    if (!Expansion.Succeeded)
        Raise(Context, DUK_ERR_ERROR, Expansion.Reason);
    ScriptValues::PushText(Context, Expansion.Text);
    return 1;
}

struct TActionMethod
{
    std::string_view Name;
    duk_c_function Call;
};
constexpr TActionMethod ActionMethods[] = {{"SendMessage", SendMessage}, {"ExpandExpression", ExpandExpression}};

std::string ParameterNames(const TQXScriptMethod& Method)
{
    std::string Names;
    for (const TQXMethodParam& Param : Method.Params)
        Names += (Names.empty() ? "" : ", ") + Param.Name;
    return Names;
}

[[noreturn]] void RaiseNoMemory(duk_context* Context)
{
    Raise(Context, DUK_ERR_RANGE_ERROR, TScriptHeap::MemoryReason());
}

/// Remembers how the object is before a method changes it.
void PrepareCall(duk_context* Context, TQXPersistent& Object, const std::vector<TQXVariant>& Arguments)
{
    auto* Target = dynamic_cast<IQXScriptTarget*>(&Object);
    if (!Target)
        return;
    std::size_t Bytes = 0;
    for (const TQXVariant& Argument : Arguments)
        if (const auto* Text = std::get_if<std::string>(&Argument))
            Bytes += Text->size();
    if (!CallHost(Context, [&] { return TScriptHeap::Of(Context).Changes().MayCall(*Target, Bytes); }))
        RaiseNoMemory(Context);
}

/// Calls the registered method whose place is the function's magic number.
duk_ret_t CallMethod(duk_context* Context)
{
    const auto Place = static_cast<std::size_t>(duk_get_current_magic(Context));
    const TQXScriptMethod& Method = TScriptHeap::Of(Context).Services().Methods()[Place];
    TQXPersistent& Object = ThisObject(Context, Method.Name);
    if (!Method.IsMethodOf(Object))
        Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" was called on another object", Method.Name));
    const duk_idx_t Given = duk_get_top(Context);
    if (static_cast<std::size_t>(Given) != Method.Params.size())
        Raise(Context, DUK_ERR_TYPE_ERROR,
              fmt::format("{}({}) was called with {} argument{}", Method.Name, ParameterNames(Method), Given,
                          Given == 1 ? "" : "s"));
    std::vector<TQXVariant> Arguments;
    for (const TQXMethodParam& Param : Method.Params)
        Arguments.push_back(
            ScriptValues::ArgumentAt(Context, static_cast<duk_idx_t>(Arguments.size()), Param.Type, Param.Name));
    PrepareCall(Context, Object, Arguments);
    const TQXVariant Result = CallHost(Context, [&] { return Method.Call(Object, Arguments); });
    ScriptValues::PushVariant(Context, Result, TQXParamType::None, Method.Name);
    return 1;
}

/// Pushes the object's method of this name, if it has one.
bool PushMethod(duk_context* Context, const TQXPersistent& Object, std::string_view Name)
{
    if (dynamic_cast<const TCustomQXAction*>(&Object))
        for (const TActionMethod& Method : ActionMethods)
            if (Method.Name == Name)
            {
                duk_push_c_function(Context, Method.Call, 1);
                return true;
            }
    const std::vector<TQXScriptMethod>& Methods = TScriptHeap::Of(Context).Services().Methods();
    for (std::size_t Place = 0; Place < Methods.size(); ++Place)
        if (Methods[Place].Name == Name && Methods[Place].IsMethodOf(Object))
        {
            duk_push_c_function(Context, CallMethod, DUK_VARARGS);
            duk_set_magic(Context, -1, static_cast<duk_int_t>(Place));
            return true;
        }
    return false;
}

std::string ObjectName(duk_context* Context, duk_idx_t Target)
{
    duk_get_prop_string(Context, Target, NameKey);
    std::string Name = ScriptValues::TextOf(Context, -1);
    duk_pop(Context);
    return Name;
}

[[noreturn]] void RaiseUnknown(duk_context* Context, const TQXPersistent& Object, std::string_view Name)
{
    std::vector<std::string_view> Names;
    for (const TQXProperty& Property : Object.Properties())
        Names.push_back(Property.Name);
    Raise(Context, DUK_ERR_TYPE_ERROR,
          fmt::format("{} has no property \"{}\"{}", ObjectName(Context, 0), TRunContext::Shorten(Name),
                      DidYouMean(Name, Names)));
}

/// The proxy's way to read: target, key, receiver.
duk_ret_t GetMember(duk_context* Context)
{
    const TQXPersistent* Object = ScriptObjects::At(Context, 0);
    if (Object && duk_is_string(Context, 1) && !duk_is_symbol(Context, 1))
    {
        const std::string Name = ScriptValues::TextOf(Context, 1);
        if (const TQXProperty* Property = Object->FindProperty(Name))
        {
            ScriptValues::PushProperty(Context, CallHost(Context, [&] { return Property->Read(); }));
            return 1;
        }
        if (PushMethod(Context, *Object, Name))
            return 1;
    }
    duk_dup(Context, 1);
    duk_get_prop(Context, 0);
    return 1;
}

/// The proxy's way to write: target, key, value, receiver.
duk_ret_t SetMember(duk_context* Context)
{
    const TQXPersistent* Object = ScriptObjects::At(Context, 0);
    const std::string Name = duk_is_symbol(Context, 1) ? "Symbol" : ScriptValues::TextOf(Context, 1);
    const TQXProperty* Property = Object ? Object->FindProperty(Name) : nullptr;
    if (Property && !Property->IsPersisted())
        Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" cannot be changed", Name));
    if (!Property && Object && PushMethod(Context, *Object, Name))
        Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" is a method and cannot be changed", Name));
    if (!Property)
        RaiseUnknown(Context, *Object, Name);
    const TQXPropertyValue Value = ScriptValues::PropertyAt(Context, 2, *Property);
    if (!CallHost(Context, [&] { return TScriptHeap::Of(Context).Changes().MayWrite(*Property, Value); }))
        RaiseNoMemory(Context);
    CallHost(Context, [&] { Property->Write(Value); });
    duk_push_true(Context);
    return 1;
}

/// One handler serves all objects.
void PushHandler(duk_context* Context)
{
    duk_push_global_stash(Context);
    if (!duk_get_prop_string(Context, -1, HandlerKey))
    {
        duk_pop(Context);
        duk_push_bare_object(Context);
        duk_push_c_function(Context, GetMember, 3);
        duk_put_prop_string(Context, -2, "get");
        duk_push_c_function(Context, SetMember, 4);
        duk_put_prop_string(Context, -2, "set");
        duk_dup_top(Context);
        duk_put_prop_string(Context, -3, HandlerKey);
    }
    duk_remove(Context, -2);
}
} // namespace

void ScriptObjects::Push(duk_context* Context, TQXPersistent& Object, std::string_view Name)
{
    duk_push_object(Context);
    for (const TQXProperty& Property : Object.Properties())
    {
        duk_push_undefined(Context);
        duk_put_prop_lstring(Context, -2, Property.Name.data(), Property.Name.size());
    }
    duk_push_pointer(Context, &Object);
    duk_put_prop_string(Context, -2, ObjectKey);
    ScriptValues::PushText(Context, Name);
    duk_put_prop_string(Context, -2, NameKey);
    duk_seal(Context, -1);
    PushHandler(Context);
    duk_push_proxy(Context, 0);
}

TQXPersistent* ScriptObjects::At(duk_context* Context, duk_idx_t Index)
{
    if (!duk_is_object(Context, Index))
        return nullptr;
    duk_get_prop_string(Context, Index, ObjectKey);
    auto* Object = static_cast<TQXPersistent*>(duk_get_pointer(Context, -1));
    duk_pop(Context);
    return Object;
}
