#pragma once

#include <cstdint>

#include "platform/Observable.h"

namespace tidewright::gateway {

/// How the gateway misbehaves; read at the moment of use. Nothing is clamped here.
struct FailureInjection : platform::Observable {
    platform::Published<bool> stopStream{*this, false};       ///< nothing new is emitted
    platform::Published<bool> disableGPS{*this, false};       ///< no RMC, GGA, VTG
    platform::Published<bool> disableWind{*this, false};      ///< no MWV
    platform::Published<bool> disableAIS{*this, false};       ///< no AIS
    platform::Published<bool> invalidChecksum{*this, false};  ///< every checksum is wrong
    platform::Published<std::int64_t> latencyMs{*this, 0};  ///< delay of each sentence; <= 0: none
    platform::Published<std::int64_t> packetLossPercent{*this,
                                                        0};        ///< chance of each to be dropped
    platform::Published<bool> randomDisconnections{*this, false};  ///< clients dropped every 8 s

    /// How many of them are on.
    int activeCount() const;

    /// Switches every one off.
    void reset();
};

}  // namespace tidewright::gateway
