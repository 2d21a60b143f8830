#pragma once

#include <string_view>

namespace tidewright::platform {

/// Stops the program: writes "tidewright: " and `message` to standard error, then aborts.
/// For broken promises inside the program, in every build type; never for bad input from outside.
[[noreturn]] void fail(std::string_view message);

/// Calls fail() with `message`, which says what was wrong, unless `condition` holds.
inline void check(bool condition, std::string_view message) {
    if (!condition) fail(message);
}

}  // namespace tidewright::platform
