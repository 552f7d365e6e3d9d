// Room for calls that nest.
#pragma once

#include <functional>

/// Does Work where calls may nest as deep as usual: on a stack of the usual size of its own, should the user have
/// limited the program's. What Work throws comes out of here.
void WithRoomForCalls(const std::function<void()>& Work);
