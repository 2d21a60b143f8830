#include "platform/Check.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace tidewright::platform {

void fail(std::string_view message) {
    const std::string line = "tidewright: " + std::string(message) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    std::abort();
}

}  // namespace tidewright::platform
