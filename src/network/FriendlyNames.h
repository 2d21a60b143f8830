#pragma once

#include <map>
#include <string>

namespace tidewright::network {

/// What people call the interfaces, by the system's name, as in {"en0", "Wi-Fi"}.
using FriendlyNames = std::map<std::string, std::string>;

/// What this machine knows of them now; interfaces without such a name are left out.
FriendlyNames friendlyNames();

}  // namespace tidewright::network
