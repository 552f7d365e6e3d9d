#pragma once

#include "host/QXPages.h"

#include <span>
#include <string_view>

/// The pages of an action or options class of the package, in order; none for a class without pages.
[[nodiscard]] std::span<const TQXPageClass> PagesOf(std::string_view ClassName);
