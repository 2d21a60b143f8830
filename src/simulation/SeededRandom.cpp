#include "simulation/SeededRandom.h"

#include <charconv>
#include <system_error>

#include "platform/Check.h"

namespace tidewright::simulation {

namespace {

/// FNV-1a, of 64 bits.
std::uint64_t hash(std::string_view name) {
    std::uint64_t value = 0xCBF29CE484222325;
    for (const char each : name) {
        value ^= static_cast<unsigned char>(each);
        value *= 0x100000001B3;
    }
    return value;
}

}  // namespace

platform::RandomSource& SeededRandom::stream(std::string_view name) {
    const auto found = streams_.find(name);
    if (found != streams_.end()) return found->second;
    const std::uint64_t itsSeed = SeededGenerator{seed_ ^ hash(name)}.next();
    return streams_.emplace(name, itsSeed).first->second;
}

std::int64_t SeededRandom::below(std::int64_t bound) {
    platform::check(bound > 0, "the bound of a draw must be above zero");
    return static_cast<std::int64_t>(generator_.bounded(static_cast<std::uint64_t>(bound)));
}

std::optional<std::uint64_t> parseSeed(std::string_view text) {
    std::uint64_t seed = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, seed);
    if (error != std::errc() || stop != end) return std::nullopt;
    return seed;
}

}  // namespace tidewright::simulation
