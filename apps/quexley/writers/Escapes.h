#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

/// For each byte what stands for it in a text of some format; an empty text: the byte itself.
using TEscapes = std::array<std::string_view, 256>;

/// The escapes of Base with others in their place.
[[nodiscard]] constexpr TEscapes WithEscapes(TEscapes Base,
                                             std::initializer_list<std::pair<char, std::string_view>> Escapes)
{
    for (const auto& [Character, Escape] : Escapes)
        Base[static_cast<unsigned char>(Character)] = Escape;
    return Base;
}

inline void AppendEscaped(std::string& Target, std::string_view Text, const TEscapes& Escapes)
{
    std::size_t Start = 0;
    for (std::size_t Place = 0; Place < Text.size(); ++Place)
    {
        const std::string_view Escape = Escapes[static_cast<unsigned char>(Text[Place])];
        if (Escape.empty())
            continue;
        Target.append(Text.substr(Start, Place - Start)).append(Escape);
        Start = Place + 1;
    }
    Target.append(Text.substr(Start));
}
