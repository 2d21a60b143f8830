#include "gateway/SimulationConfig.h"

namespace tidewright::gateway {

void SimulationConfig::apply(const GatewayPreset& chosen) {
    preset = chosen;
    tcpEnabled = chosen.tcpEnabled;
    udpEnabled = chosen.udpEnabled;
    tcpPort = chosen.tcpPort;
    udpPort = chosen.udpPort;
    gpsTalker = std::string(chosen.gpsTalker);
}

bool SimulationConfig::differsFromPreset() const {
    return tcpEnabled != preset->tcpEnabled || udpEnabled != preset->udpEnabled ||
           tcpPort != preset->tcpPort || udpPort != preset->udpPort ||
           gpsTalker.get() != preset->gpsTalker;
}

}  // namespace tidewright::gateway
