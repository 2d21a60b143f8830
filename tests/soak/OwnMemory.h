#pragma once

#include <fstream>
#include <string>

namespace tidewright::soak {

/// Resident memory that is this process's own, in KiB: without what it shares with others.
inline long ownMemoryKiB() {
    std::ifstream status("/proc/self/status");
    std::string word;
    long kib = 0;
    while (status >> word)
        if (word == "RssAnon:") status >> kib;
    return kib;
}

}  // namespace tidewright::soak
