#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/RandomSource.h"
#include "simulation/SeededGenerator.h"

namespace tidewright::simulation {

/// Chance that comes again: the same seed, the same draws, on every machine. Each of its streams
/// has a seed of its own, made of this one and the stream's name.
class SeededRandom final : public platform::RandomSource {
public:
    explicit SeededRandom(std::uint64_t seed) : seed_(seed), generator_{seed} {}

    platform::RandomSource& stream(std::string_view name) override;
    std::uint64_t bits() override { return generator_.next(); }
    std::int64_t below(std::int64_t bound) override;
    double halfOpen(double low, double high) override { return generator_.halfOpen(low, high); }
    double closed(double low, double high) override { return generator_.closed(low, high); }

private:
    std::uint64_t seed_;
    SeededGenerator generator_;
    std::map<std::string, SeededRandom, std::less<>> streams_;  // by name
};

/// A seed as people write it: a whole number within 0 to 2^64 - 1, in digits alone; nothing for
/// other texts.
std::optional<std::uint64_t> parseSeed(std::string_view text);

}  // namespace tidewright::simulation
