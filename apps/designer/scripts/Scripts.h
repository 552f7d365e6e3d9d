// The scripts of projects and actions, for a TScriptPane.
#pragma once

#include "apps/designer/scripts/ScriptPane.h"
#include "runtime/Project.h"

#include <utility>

namespace Scripts
{
/// Those that an action declares.
[[nodiscard]] std::vector<TShownScript> OfAction(const TCustomQXAction& Action);
/// Whatever the project may give its actions: the scripts that any registered class declares, by name.
[[nodiscard]] std::vector<TShownScript> OfProject(const TProject& Project);
/// Whether a script of this name can be parsed: the line and the reason if it cannot.
[[nodiscard]] std::pair<int, QString> Check(const std::string& Name, const std::string& Text);
} // namespace Scripts
