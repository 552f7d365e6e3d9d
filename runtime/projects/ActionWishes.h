// What a project's tables should hold, compared with what they held when they were read.
#pragma once

#include "runtime/Project.h"
#include "runtime/projects/TomlDocument.h"
#include "runtime/projects/TomlEditor.h"

#include <string_view>
#include <vector>

/// For the keys above all tables.
[[nodiscard]] std::vector<TTomlWish> RootWishes(const TProject& Project, const TProject& Original,
                                                std::string_view LineEnd);
/// For `[project]`.
[[nodiscard]] std::vector<TTomlWish> ProjectWishes(const TProject& Project, const TProject& Original);
/// For `[variables]`.
[[nodiscard]] std::vector<TTomlWish> VariableWishes(const TVariables::TPairs& Variables,
                                                    const TVariables::TPairs& Original);
/// For `[scripts]`.
[[nodiscard]] std::vector<TTomlWish> ProjectScriptWishes(const TProject& Project, const TProject& Original,
                                                         std::string_view LineEnd);

/// An action as its table held it; both null for an action that has none.
struct TStoredAction
{
    const TProjectAction* Action = nullptr;
    const TTomlNode* Table = nullptr;
};

/// For `[[action]]`: the host's keys, then the properties in order of declaration. Throws EUsageError for an
/// action of a type that is not registered.
[[nodiscard]] std::vector<TTomlWish> ActionWishes(const TProjectAction& Action, TStoredAction Stored,
                                                  std::string_view LineEnd);
/// For `[action.scripts]`.
[[nodiscard]] std::vector<TTomlWish> ScriptWishes(const TProjectAction& Action, TStoredAction Stored,
                                                  std::string_view LineEnd);
