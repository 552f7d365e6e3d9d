// What a fuzzer calls. A broken promise ends the program with its text, as an exception that nobody catches.
#include "tests/fuzz/FuzzTarget.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

/// Lets temporary files be in memory where the system has such a place.
extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    return std::filesystem::exists("/dev/shm") ? ::setenv("TMPDIR", "/dev/shm", 0) : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size)
{
    TFuzzTarget::All().front().Check({reinterpret_cast<const char*>(Data), Size});
    return 0;
}
