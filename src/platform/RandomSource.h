#pragma once

#include <cstdint>
#include <string_view>

namespace tidewright::platform {

/// Where chance comes from.
class RandomSource {
public:
    virtual ~RandomSource() = default;

    /// The chance of what is called `name`, as in "fleet": a stream of its own where runs are to
    /// repeat, so that what one draws never shifts another; this source itself where they are not.
    /// Lasts as long as this source; the same name gives the same stream.
    virtual RandomSource& stream(std::string_view /*name*/) { return *this; }

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
