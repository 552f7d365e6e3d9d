#pragma once

#include <string>

/// The JSON Schema (draft 2020-12) of project files: the host's keys and the properties and scripts of every
/// registered action.
[[nodiscard]] std::string ProjectSchemaJson();
