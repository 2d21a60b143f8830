#pragma once

#include <cstdint>

#include "platform/Observable.h"

namespace tidewright::faults {

/// Which faults are on; read at the moment of use. Nothing is clamped here.
struct FailureInjection : platform::Observable {
    platform::Published<bool> stopStream{*this, false};       ///< nothing new is emitted
    platform::Published<bool> disableGPS{*this, false};       ///< no RMC, GGA, VTG
    platform::Published<bool> disableWind{*this, false};      ///< no MWV
    platform::Published<bool> disableAIS{*this, false};       ///< no AIS
    platform::Published<bool> frozenPosition{*this, false};   ///< position, SOG and COG stand still
    platform::Published<bool> invalidChecksum{*this, false};  ///< every checksum is wrong

    /// Delay of each sentence; 0 and below: none.
    platform::Published<std::int64_t> latencyMs{*this, 0};

    /// Chance of each sentence to be dropped; 0 and below: none, 100 and above: all.
    platform::Published<std::int64_t> packetLossPercent{*this, 0};

    platform::Published<bool> randomDisconnections{*this, false};  ///< clients dropped every 8 s
};

}  // namespace tidewright::faults
