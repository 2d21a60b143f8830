#include <cstddef>
#include <cstdint>

#include "FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    tidewright::fuzz::tryInput(
        tidewright::fuzz::FuzzInput({reinterpret_cast<const char*>(bytes), size}));
    return 0;
}
