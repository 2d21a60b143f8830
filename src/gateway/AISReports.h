#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "encoding/AISEncoder.h"
#include "simulation/AISTarget.h"

namespace tidewright::gateway {

/// The rhythm of AIS: every vessel's position at each emission, and its static data about every ten
/// seconds. Both counters run on for the whole life of the gateway, through stops and starts.
class AISReports {
public:
    /// The sentences of one emission at `aisHz`: all positions, then, when it is their turn, all
    /// static reports.
    std::vector<std::string> next(const std::vector<simulation::AISTarget>& targets,
                                  const encoding::AISEncoder& encoder, double aisHz);

    /// Emissions left before the next batch of static reports.
    std::int64_t staticCountdown() const { return staticCountdown_; }

    /// The sequential message identifier last handed to a static report, 0 to 9.
    int sequence() const { return sequence_; }

private:
    std::int64_t staticCountdown_ = 0;
    int sequence_ = 0;
};

}  // namespace tidewright::gateway
