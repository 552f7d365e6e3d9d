// Puts the text of a project together: sections that were there, edited and in their new order, and new ones.
#pragma once

#include "runtime/projects/TomlDocument.h"
#include "runtime/projects/TomlEditor.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

inline constexpr std::string_view ActionHeader = "[[action]]";
inline constexpr std::string_view ScriptsHeader = "[action.scripts]";

/// An action of the new text: one that the file holds, or the text of a new one.
struct TActionBlock
{
    std::optional<std::size_t> Original; ///< its place among the file's actions
    std::string NewText;
};

/// The sections of a project, none of them to be added where empty.
struct TProjectBlocks
{
    std::string NewRoot; ///< keys above all sections
    std::string NewProject;
    std::string NewVariables;
    std::string NewScripts;
    std::vector<TActionBlock> Actions;
};

/// Tables are the file's actions under headers of their own; those that no block names go. Where no action moves,
/// everything stays where it is.
[[nodiscard]] std::string JoinProjectText(const TTomlDocument& Document, const TTomlEditor& Editor,
                                          std::span<const TTomlNode> Tables, const TProjectBlocks& Blocks);
