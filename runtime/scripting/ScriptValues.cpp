#include "runtime/scripting/ScriptValues.h"

#include "runtime/NearestName.h"
#include "runtime/projects/FileFindings.h"
#include "runtime/scripting/ScriptHeap.h"
#include "runtime/scripting/ScriptObjects.h"
#include "runtime/scripting/ScriptText.h"

#include <algorithm>
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

[[noreturn]] void RaiseWrongType(duk_context* Context, duk_idx_t Index, std::string_view What,
                                 std::string_view Expected)
{
    Raise(Context, DUK_ERR_TYPE_ERROR,
          fmt::format("\"{}\" expects {}, not {}", What, Expected, KindAt(Context, Index)));
}

bool IsText(duk_context* Context, duk_idx_t Index)
{
    return duk_is_string(Context, Index) && !duk_is_symbol(Context, Index);
}

std::string TextAt(duk_context* Context, duk_idx_t Index, std::string_view What, std::string_view Expected)
{
    if (!IsText(Context, Index))
        RaiseWrongType(Context, Index, What, Expected);
    return TextOf(Context, Index);
}

bool BooleanAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    if (!duk_is_boolean(Context, Index))
        RaiseWrongType(Context, Index, What, "a Boolean");
    return duk_get_boolean(Context, Index) != 0;
}

bool IsInteger(double Number)
{
    return std::trunc(Number) == Number && Number >= std::numeric_limits<int>::min() &&
           Number <= std::numeric_limits<int>::max();
}

int IntegerAt(duk_context* Context, duk_idx_t Index, std::string_view What)
{
    if (!duk_is_number(Context, Index))
        RaiseWrongType(Context, Index, What, "an integer");
    const double Number = duk_get_number(Context, Index);
    if (!IsInteger(Number))
        Raise(Context, DUK_ERR_RANGE_ERROR, fmt::format("\"{}\" expects an integer, not {}", What, Number));
    return static_cast<int>(Number);
}

std::string ElementAt(duk_context* Context, duk_idx_t Index, const TQXProperty& Property, std::string_view Expected)
{
    std::string Name = TextAt(Context, Index, Property.Name, Expected);
    const auto& Names = Property.Elements;
    if (std::find(Names.begin(), Names.end(), Name) != Names.end())
        return Name;
    std::string Hint = DidYouMean(Name, Names);
    if (Hint.empty())
        Hint = fmt::format("; its values are {}", QuotedNames(Names));
    Raise(Context, DUK_ERR_TYPE_ERROR, fmt::format("\"{}\" has no value \"{:.100}\"{}", Property.Name, Name, Hint));
}

/// An array whose items Item reads. One text can stand in it any number of times, so its size has a limit too.
template <typename T>
std::vector<std::string> ListAt(duk_context* Context, duk_idx_t Index, std::string_view What, std::string_view Expected,
                                const T& Item)
{
    if (!duk_is_array(Context, Index))
        RaiseWrongType(Context, Index, What, Expected);
    std::vector<std::string> Items;
    std::size_t Size = 0;
    for (duk_uarridx_t Place = 0; Place < duk_get_length(Context, Index); ++Place)
    {
        duk_get_prop_index(Context, Index, Place);
        Size += Items.emplace_back(Item(duk_get_top_index(Context))).size();
        duk_pop(Context);
        if (Size > TScriptHeap::MemoryLimit)
            Raise(Context, DUK_ERR_RANGE_ERROR, fmt::format("the array for \"{}\" is too large", What));
    }
    return Items;
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
    if (const auto* Text = std::get_if<std::string>(&Value))
        return PushText(Context, *Text);
    if (const auto* Flag = std::get_if<bool>(&Value))
        return duk_push_boolean(Context, *Flag);
    if (const auto* Number = std::get_if<int>(&Value))
        return duk_push_int(Context, *Number);
    duk_push_array(Context);
    duk_uarridx_t Place = 0;
    for (const std::string& Item : std::get<std::vector<std::string>>(Value))
    {
        PushText(Context, Item);
        duk_put_prop_index(Context, -2, Place++);
    }
    duk_freeze(Context, -1);
}

TQXPropertyValue ScriptValues::PropertyAt(duk_context* Context, duk_idx_t Index, const TQXProperty& Property)
{
    switch (Property.Type)
    {
    case TQXPropertyType::String:
        return TextAt(Context, Index, Property.Name, "a string");
    case TQXPropertyType::Boolean:
        return BooleanAt(Context, Index, Property.Name);
    case TQXPropertyType::Integer:
        return IntegerAt(Context, Index, Property.Name);
    case TQXPropertyType::Enumeration:
        return ElementAt(Context, Index, Property, "the name of a value as a string");
    case TQXPropertyType::Set:
        return ListAt(Context, Index, Property.Name, "an array of names",
                      [&](duk_idx_t Item) { return ElementAt(Context, Item, Property, "an array of names"); });
    case TQXPropertyType::StringList:
        return ListAt(Context, Index, Property.Name, "an array of strings",
                      [&](duk_idx_t Item) { return TextAt(Context, Item, Property.Name, "an array of strings"); });
    }
    return {};
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
        return TextAt(Context, Index, What, "a string");
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
