#pragma once

#include <nlohmann/json.hpp>

/// The JSON Schema (draft 2020-12) of project files: the host's keys and the properties and scripts of every
/// registered action.
[[nodiscard]] nlohmann::ordered_json ProjectSchema();
