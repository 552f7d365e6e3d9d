#include "runtime/scripting/ScriptValues.h"

#include "host/QXOverloads.h"
#include "runtime/properties/ValueCheck.h"
#include "runtime/scripting/ScriptHeap.h"
#include "runtime/scripting/ScriptObjects.h"
#include "runtime/scripting/ScriptText.h"

#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace
{
using namespace ScriptValues;

std::string_view KindAt(duk_context* Context, duk_idx_t Index)
{
    if (duk_is_array(Context, Index))
        return "an array";
    switch (duk_get_type(Context, Index))
    {
    case DUK_TYPE_NULL:
        return "null";
    case DUK_TYPE_BOOLEAN:
        return "a Boolean";
    case DUK_TYPE_NUMBER:
        return "a number";
    case DUK_TYPE_STRING:
        return duk_is_symbol(Context, Index) ? "a symbol" : "a string";
    case DUK_TYPE_OBJECT:
    case DUK_TYPE_LIGHTFUNC:
        return duk_is_function(Context, Index) ? "a function" : "an object";
    default:
        return "undefined";
    }
}

bool IsText(duk_context* Context, duk_idx_t Index)
{
    return duk_is_string(Context, Index) && !duk_is_symbol(Context, Index);
}

/// Whole numbers up to this one are exact.
constexpr double LargestWhole = 9007199254740992.0;

bool IsWhole(double Number)
{
    return std::trunc(Number) == Number && std::abs(Number) <= LargestWhole;
}

TGivenValue GivenNumber(double Number)
{
    if (IsWhole(Number))
        return {"a number", static_cast<std::int64_t>(Number)};
    return {fmt::format("{}", Number)};
}

/// What is no array.
TGivenValue GivenSingle(duk_context* Context, duk_idx_t Index)
{
    if (IsText(Context, Index))
        return {"a string", TextOf(Context, Index)};
    if (duk_is_boolean(Context, Index))
        return {"a Boolean", duk_get_boolean(Context, Index) != 0};
    if (duk_is_number(Context, Index))
        return GivenNumber(duk_get_number(Context, Index));
    return {std::string(KindAt(Context, Index))};
}

/// An array up to the first item that is no text. One text can stand in it any number of times, so its size has a
/// limit too.
TGivenValue::TItems GivenItems(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    TGivenValue::TItems Items;
    std::size_t Size = 0;
    bool IsTexts = true;
    for (duk_uarridx_t Place = 0; IsTexts && Place < duk_get_length(Context, Index); ++Place)
    {
        duk_get_prop_index(Context, Index, Place);
        IsTexts = IsText(Context, -1);
        Items.push_back(GivenSingle(Context, -1));
        Size += sizeof(TGivenValue) + (IsTexts ? std::get<std::string>(Items.back().Value).size() : 0);
        duk_pop(Context);
        if (Size > TScriptHeap::MemoryLimit)
            Raise(Context, DUK_ERR_RANGE_ERROR, fmt::format("the array for \"{}\" is too large", What));
    }
    return Items;
}

TGivenValue GivenAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    if (duk_is_array(Context, Index))
        return {"an array", GivenItems(Context, Index, What)};
    return GivenSingle(Context, Index);
}

/// The value at Index as Ask gets it from a check under the name What.
template <typename T> auto CheckedAt(duk_context* Context, duk_idx_t Index, std::string_view What, T Ask)
{
    TValueCheck Check(What);
    auto Result = Ask(Check, GivenAt(Context, Index, What));
    if (!Result)
    {
        const TValueError& Error = Check.Errors().front();
        Raise(Context, Error.IsOutOfRange ? DUK_ERR_RANGE_ERROR : DUK_ERR_TYPE_ERROR, Error.Text);
    }
    return *std::move(Result);
}

std::string TextAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    return CheckedAt(Context, Index, What,
                     [](TValueCheck& Check, TGivenValue Given) { return Check.Text(std::move(Given)); });
}

bool BooleanAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    return CheckedAt(Context, Index, What,
                     [](TValueCheck& Check, const TGivenValue& Given) { return Check.Boolean(Given); });
}

int IntegerAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    return CheckedAt(Context, Index, What,
                     [](TValueCheck& Check, const TGivenValue& Given) { return Check.Integer(Given); });
}

bool IsInteger(double Number)
{
    return IsWhole(Number) && Number >= std::numeric_limits<int>::min() && Number <= std::numeric_limits<int>::max();
}

void PushTexts(duk_context* Context, const std::vector<std::string>& Items)
{
    duk_push_array(Context);
    duk_uarridx_t Place = 0;
    for (const std::string& Item : Items)
    {
        PushText(Context, Item);
        duk_put_prop_index(Context, -2, Place++);
    }
    duk_freeze(Context, -1);
}

void PushEmpty(duk_context* Context, TQXParamType Type)
{
    switch (Type)
    {
    case TQXParamType::None:
        return duk_push_undefined(Context);
    case TQXParamType::String:
        return static_cast<void>(duk_push_string(Context, ""));
    case TQXParamType::Boolean:
        return duk_push_false(Context);
    case TQXParamType::Integer:
        return duk_push_int(Context, 0);
    }
}

TQXVariant AnyAt(duk_context* Context, duk_idx_t Index)
{
    if (duk_is_null_or_undefined(Context, Index))
        return {};
    if (duk_is_boolean(Context, Index))
        return duk_get_boolean(Context, Index) != 0;
    if (duk_is_number(Context, Index) && IsInteger(duk_get_number(Context, Index)))
        return static_cast<int>(duk_get_number(Context, Index));
    if (TQXPersistent* Object = ScriptObjects::At(Context, Index))
        return Object;
    return TextOf(Context, Index);
}
} // namespace

void ScriptValues::Raise(duk_context* Context, duk_errcode_t Kind, const std::string& Message)
{
    duk_push_error_object_raw(Context, Kind, nullptr, 0, "%s", "");
    PushText(Context, Message);
    duk_put_prop_string(Context, -2, "message");
    duk_throw_raw(Context);
    __builtin_unreachable();
}

void ScriptValues::PushText(duk_context* Context, std::string_view Text)
{
    const std::string Converted = ScriptText::FromHost(Text);
    duk_push_lstring(Context, Converted.data(), Converted.size());
}

std::string ScriptValues::TextOf(duk_context* Context, duk_idx_t Index)
{
    duk_dup(Context, Index);
    duk_size_t Size = 0;
    const char* Bytes = duk_to_lstring(Context, -1, &Size);
    std::string Text = ScriptText::ToHost({Bytes, Size});
    duk_pop(Context);
    return Text;
}

void ScriptValues::PushProperty(duk_context* Context, const TQXPropertyValue& Value)
{
    std::visit(TQXOverloads{[&](const std::string& Text) { PushText(Context, Text); },
                            [&](bool Flag) { duk_push_boolean(Context, Flag); },
                            [&](int Number) { duk_push_int(Context, Number); },
                            [&](const std::vector<std::string>& Items) { PushTexts(Context, Items); }},
               Value);
}

TQXPropertyValue ScriptValues::PropertyAt(duk_context* Context, duk_idx_t Index, const TQXProperty& Property)
{
    return CheckedAt(Context, Index, Property.Name,
                     [&](TValueCheck& Check, TGivenValue Given) { return Check.Property(Property, std::move(Given)); });
}

void ScriptValues::PushVariant(duk_context* Context, const TQXVariant& Value, TQXParamType Type, std::string_view Name)
{
    if (const auto* Text = std::get_if<std::string>(&Value))
        return PushText(Context, *Text);
    if (const auto* Flag = std::get_if<bool>(&Value))
        return duk_push_boolean(Context, *Flag);
    if (const auto* Number = std::get_if<int>(&Value))
        return duk_push_int(Context, *Number);
    const auto* Object = std::get_if<TQXPersistent*>(&Value);
    if (Object && *Object)
        return ScriptObjects::Push(Context, **Object, Name);
    PushEmpty(Context, Type);
}

TQXVariant ScriptValues::ArgumentAt(duk_context* Context, duk_idx_t Index, TQXParamType Type, std::string_view What)
{
    switch (Type)
    {
    case TQXParamType::String:
        return TextAt(Context, Index, What);
    case TQXParamType::Boolean:
        return BooleanAt(Context, Index, What);
    case TQXParamType::Integer:
        return IntegerAt(Context, Index, What);
    case TQXParamType::None:
        break;
    }
    return AnyAt(Context, Index);
}

TQXVariant ScriptValues::OutputAt(duk_context* Context, duk_idx_t Index, TQXParamType Type, std::string_view What)
{
    if (Type == TQXParamType::None)
        return AnyAt(Context, Index);
    if (duk_is_null_or_undefined(Context, Index))
        Raise(Context, DUK_ERR_TYPE_ERROR,
              fmt::format("\"{}\" is {} when the script ends", What, KindAt(Context, Index)));
    if (Type == TQXParamType::String)
        return TextOf(Context, Index);
    if (Type == TQXParamType::Boolean)
        return duk_to_boolean(Context, Index) != 0;
    duk_to_number(Context, Index);
    return IntegerAt(Context, Index, What);
}
