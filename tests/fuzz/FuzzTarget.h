// What the fuzzers and the replay of the inputs that were kept share. A new target is one file NAMEFuzz.cpp with a
// check and a TFuzzTarget, and a folder corpus/NAME (in lower case) with a few inputs.
#pragma once

#include <stdexcept>
#include <string_view>
#include <vector>

/// Something that holds for any input. Check throws what it does not expect.
struct TFuzzTarget
{
    using TCheck = void (*)(std::string_view Input);

    TFuzzTarget(std::string_view AName, TCheck ACheck) : Name(AName), Check(ACheck) { All().push_back(*this); }
    /// Those that are linked into the program.
    static std::vector<TFuzzTarget>& All()
    {
        static std::vector<TFuzzTarget> Targets;
        return Targets;
    }

    std::string_view Name; ///< of the folder of kept inputs
    TCheck Check;
};

namespace Fuzz
{
inline void Require(bool Holds, const char* Promise)
{
    if (!Holds)
        throw std::runtime_error(Promise);
}
} // namespace Fuzz
