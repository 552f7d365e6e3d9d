// What a user who misspelled a name probably meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

/// The candidate that Name was probably meant to be, empty if none is near.
[[nodiscard]] std::string_view NearestName(std::string_view Name, std::span<const std::string_view> Candidates);
/// `; did you mean "NEAREST"?`, or nothing.
[[nodiscard]] std::string DidYouMean(std::string_view Name, std::span<const std::string_view> Candidates);
