#include "gateway/FailureInjection.h"

namespace tidewright::gateway {

int FailureInjection::activeCount() const {
    return stopStream + disableGPS + disableWind + disableAIS + invalidChecksum +
           (latencyMs.get() > 0) + (packetLossPercent.get() > 0) + randomDisconnections;
}

void FailureInjection::reset() {
    for (auto* fault : {&stopStream, &disableGPS, &disableWind, &disableAIS, &invalidChecksum,
                        &randomDisconnections})
        *fault = false;
    latencyMs = 0;
    packetLossPercent = 0;
}

}  // namespace tidewright::gateway
