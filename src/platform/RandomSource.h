#pragma once

#include <cstdint>

namespace tidewright::platform {

/// Where chance comes from, for everything that need not be repeatable.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    /// 64 uniform bits: a seed, half an identifier.
    virtual std::uint64_t bits() = 0;

    /// A whole number within [0, bound), without bias; `bound` > 0.
    virtual std::int64_t below(std::int64_t bound) = 0;

    /// A number within [low, high), in steps of 2^-53 of the span.
    virtual double halfOpen(double low, double high) = 0;

    /// A number within [low, high], in steps of 2^-53 of the span.
    virtual double closed(double low, double high) = 0;
};

}  // namespace tidewright::platform
