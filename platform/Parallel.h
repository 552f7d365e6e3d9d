// Work that several processors share.
#pragma once

#include <cstddef>
#include <functional>

/// Does the work for each number below Count, some of it at the same time, in no order. Returns when all is done;
/// throws the first exception that came out of it, and does not begin with more then.
void ForEachAtOnce(std::size_t Count, const std::function<void(std::size_t)>& Work);
