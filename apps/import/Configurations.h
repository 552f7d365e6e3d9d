#pragma once

#include "apps/import/Model.h"

#include <utility>

/// Sets the model's configuration, that which is wanted or else the usual one, and which one each included project
/// takes. Throws EUsageError for one that nothing knows.
void ChooseConfigurations(TImportModel& Model, const std::string& Wanted);

/// A text for values of the variable Config, for each of which one is given, as one expression; none if there is none
/// that gives them all.
using TValueTexts = std::vector<std::pair<std::string, std::string>>;
[[nodiscard]] std::optional<std::string> CommonExpression(const TValueTexts& Texts);
