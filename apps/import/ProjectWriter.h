#pragma once

#include "apps/import/Model.h"

/// The project file of a model, whose projects are built in this order. Names: those of their actions.
[[nodiscard]] std::string WriteProject(const TImportModel& Model, const std::string& Name,
                                       const std::vector<std::size_t>& Order, const std::vector<std::string>& Names);

/// The class of the action that compiles projects of this kind.
[[nodiscard]] std::string_view ActionType(TProjectKind Kind);
