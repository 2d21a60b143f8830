#include "network/FriendlyNames.h"
#include "network/WirelessNames.h"

namespace tidewright::network {

FriendlyNames friendlyNames() {
    return wirelessNames("/sys/class/net");
}

}  // namespace tidewright::network
