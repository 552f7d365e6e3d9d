#pragma once

#include "runtime/RunEvents.h"

#include <tuple>
#include <type_traits>

/// References to all members of an event. A count that differs from that of its names does not compile.
template <typename TEvent> auto TieMembers(TEvent& Event)
{
    constexpr std::size_t Count = std::remove_const_t<TEvent>::Members.size();
    static_assert(Count <= 8, "events of more members need a further case here");
    if constexpr (Count == 0)
    {
        static_assert(std::is_empty_v<TEvent>);
        return std::tuple<>();
    }
    else if constexpr (Count == 1)
    {
        auto& [A] = Event;
        return std::tie(A);
    }
    else if constexpr (Count == 2)
    {
        auto& [A, B] = Event;
        return std::tie(A, B);
    }
    else if constexpr (Count == 3)
    {
        auto& [A, B, C] = Event;
        return std::tie(A, B, C);
    }
    else if constexpr (Count == 4)
    {
        auto& [A, B, C, D] = Event;
        return std::tie(A, B, C, D);
    }
    else if constexpr (Count == 5)
    {
        auto& [A, B, C, D, E] = Event;
        return std::tie(A, B, C, D, E);
    }
    else if constexpr (Count == 6)
    {
        auto& [A, B, C, D, E, F] = Event;
        return std::tie(A, B, C, D, E, F);
    }
    else if constexpr (Count == 7)
    {
        auto& [A, B, C, D, E, F, G] = Event;
        return std::tie(A, B, C, D, E, F, G);
    }
    else
    {
        auto& [A, B, C, D, E, F, G, H] = Event;
        return std::tie(A, B, C, D, E, F, G, H);
    }
}

/// Calls Use with the name and the value of each member of an event, in their order.
template <typename TEvent, typename TUse> void ForEachMember(TEvent& Event, TUse Use)
{
    std::apply(
        [&](auto&... Values) {
            [[maybe_unused]] auto Name = std::remove_const_t<TEvent>::Members.begin();
            (Use(*Name++, Values), ...);
        },
        TieMembers(Event));
}
