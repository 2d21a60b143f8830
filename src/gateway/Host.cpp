#include "gateway/Host.h"

#include <utility>

#include "network/LocalIP.h"
#include "network/TCPServer.h"
#include "network/UDPBroadcaster.h"

namespace tidewright::gateway {

Host Host::machine(platform::MainLoop& loop, platform::MainLoop& machineLoop,
                   platform::RandomSource& random,
                   std::function<void(const std::string&)> setClipboard) {
    return {.loop = loop,
            .machineLoop = machineLoop,
            .random = random,
            .tcp = std::make_unique<network::TCPServer>(loop),
            .udp = std::make_unique<network::UDPBroadcaster>(),
            .bestInterface = [] { return network::LocalIP::best(); },
            .utcOffset = platform::systemUtcOffset,
            .setClipboard = std::move(setClipboard)};
}

}  // namespace tidewright::gateway
