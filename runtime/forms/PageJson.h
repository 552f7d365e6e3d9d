// Controls and dialogs as JSON.
#pragma once

#include "host/QXForms.h"
#include "host/QXProperties.h"
#include "runtime/forms/PageUser.h"
#include "runtime/properties/ValueCheck.h"

#include <nlohmann/json.hpp>

using TPageJson = nlohmann::ordered_json;

/// A control with its state.
[[nodiscard]] TPageJson ControlAsJson(const TControl& Control);
/// Gives a control the value that a request names, as its user would. Throws EPageUseError.
void SetControl(TPageUser& User, TControl& Control, const TPageJson& Value);

/// A dialog with what it was given.
[[nodiscard]] TPageJson DialogAsJson(const TQXDialog& Dialog);
/// The answer that a value stands for; null is "cancelled". Throws EPageUseError for one that does not fit.
[[nodiscard]] TQXAnswer AnswerOf(const TQXDialog& Dialog, const TPageJson& Value);

/// A value for a property.
[[nodiscard]] TGivenValue GivenValueOf(const TPageJson& Value);
[[nodiscard]] TPageJson ValueAsJson(const TQXPropertyValue& Value);
