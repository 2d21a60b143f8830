#pragma once

#include <array>
#include <string>

#include "platform/MainLoop.h"
#include "simulation/AISTarget.h"

namespace tidewright::encoding {

/// Tells of other vessels as an AIS receiver would: ITU-R M.1371 messages 1 and 5, as !AIVDM
/// sentences on channel A.
///
/// A negative MMSI, ship type or speed, and any value that is not finite or beyond counting, stop
/// the program.
struct AISEncoder {
    bool corrupt = false;    ///< sends wrong checksums on purpose
    platform::WallTime now;  ///< the moment of encoding: its UTC second is message 1's time stamp

    /// Message 1, class A position report, under way using engine, no turn information: one
    /// sentence, 28 payload characters. SOG in tenths of a knot, at most 102.2; COG in tenths of a
    /// degree, at most 359.9; position in 1/10000 minutes; heading in whole degrees, 359.5 and
    /// above as 360.
    std::string positionReport(const simulation::AISTarget& target) const;

    /// Message 5, static and voyage data: name, call sign and ship type, the rest not available.
    /// Two sentences, 60 and 11 payload characters, joined by `sequenceId` (0 to 9).
    std::array<std::string, 2> staticReport(const simulation::AISTarget& target,
                                            int sequenceId) const;
};

}  // namespace tidewright::encoding
