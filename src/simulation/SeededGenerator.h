#pragma once

#include <cstdint>

namespace tidewright::simulation {

/// SplitMix64: the whole chance of one sailing run, repeatable from its seed. A value: a copy goes
/// on from the same place.
struct SeededGenerator {
    std::uint64_t state = 0;

    /// 64 uniform bits.
    std::uint64_t next();

    /// A whole number within [0, n), n > 0, without bias (Lemire's nearly divisionless method).
    std::uint64_t bounded(std::uint64_t n);

    /// A number within [low, high), from the low 53 bits of next().
    double halfOpen(double low, double high);

    /// A number within [low, high], the upper end as likely as any other of the 2^53 + 1 steps.
    double closed(double low, double high);
};

}  // namespace tidewright::simulation
