// What is done to the actions of a project. Each operation gives the places that are to be selected then. Actions of
// included files are changed in their own file: here they stay as and where they are.
#pragma once

#include "apps/designer/document/ProjectDocument.h"
#include "runtime/Project.h"

#include <functional>
#include <string>

namespace ActionEdits
{
/// A new action of a registered class, at Place or as near to it as can be.
TPlaces Add(TProject& Project, const std::string& ClassName, int Place);
TPlaces Remove(TProject& Project, const TPlaces& Places);
/// Puts the actions, in their order, before the one that is now at Place.
TPlaces Move(TProject& Project, const TPlaces& Places, int Place);
/// Moves each action of Places by one up (-1) or down (1); all stay where one cannot go.
TPlaces Shift(TProject& Project, const TPlaces& Places, int By);
TPlaces Duplicate(TProject& Project, const TPlaces& Places);
/// Applies Edit to those of the actions that are the project file's own.
TPlaces Apply(TProject& Project, const TPlaces& Places, const std::function<void(TProjectAction&)>& Edit);

/// The actions as the text of a project.
[[nodiscard]] std::string Copy(const TProject& Project, const TPlaces& Places);
/// Puts the actions of such a text before the one that is now at Place. Throws EHostFileError.
TPlaces Paste(TProject& Project, const std::string& Text, int Place);

/// How many actions of included files come before the project file's own.
[[nodiscard]] int FirstOwn(const TProject& Project);
} // namespace ActionEdits
