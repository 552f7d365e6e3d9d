// How the program shows properties and their values.
#pragma once

#include "host/QXProperties.h"
#include "host/QXScript.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

/// What users call a type: "string", "string list".
[[nodiscard]] std::string_view PropertyTypeName(TQXPropertyType Type);
/// What users call a kind of text: "file", "expression".
[[nodiscard]] std::string_view TextKindName(TQXTextKind Kind);
/// What a property is for: its help where it has one, else its meaning.
[[nodiscard]] std::string_view PropertyHelp(const TQXProperty& Property);
/// What there is to say beside type and default: "required", "hidden", the kind of text, the values.
[[nodiscard]] std::string PropertyNotes(const TQXProperty& Property, bool IsHidden);
/// A value as text; the items of a set or list as comma text.
[[nodiscard]] std::string PropertyText(const TQXPropertyValue& Value);
[[nodiscard]] nlohmann::ordered_json PropertyAsJson(const TQXPropertyValue& Value);
/// What users call the type of a script's parameter.
[[nodiscard]] std::string ScriptParamTypeName(const TQXScriptParam& Param);
