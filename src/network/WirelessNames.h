#pragma once

#include <filesystem>

#include "network/FriendlyNames.h"

namespace tidewright::network {

/// "Wi-Fi" for every interface that the Linux kernel marks as wireless. `root` is the folder that
/// holds one folder an interface, /sys/class/net on a real machine; nothing if it cannot be read.
FriendlyNames wirelessNames(const std::filesystem::path& root);

}  // namespace tidewright::network
