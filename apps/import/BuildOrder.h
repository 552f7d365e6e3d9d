#pragma once

#include <cstddef>
#include <functional>
#include <set>
#include <vector>

/// The order of what needs others: behind these, else by its number. Where some need each other, Cut is told of a need
/// that is not kept.
[[nodiscard]] std::vector<std::size_t> BuildOrder(const std::vector<std::set<std::size_t>>& Needs,
                                                  const std::function<void(std::size_t, std::size_t)>& Cut);
