#include "platform/SystemRandom.h"

#include "platform/Check.h"

namespace tidewright::platform {

namespace {

constexpr std::int64_t steps = std::int64_t{1} << 53;  // a double counts this far exactly

std::mt19937_64 seededByTheMachine() {
    std::random_device device;
    std::seed_seq seed{device(), device(), device(), device(),
                       device(), device(), device(), device()};
    return std::mt19937_64(seed);
}

double between(double low, double high, std::int64_t step) {
    return low + (high - low) * (static_cast<double>(step) / static_cast<double>(steps));
}

}  // namespace

SystemRandom::SystemRandom() : generator_(seededByTheMachine()) {}

std::uint64_t SystemRandom::bits() {
    return generator_();
}

std::int64_t SystemRandom::below(std::int64_t bound) {
    check(bound > 0, "the bound of a draw must be above zero");
    return std::uniform_int_distribution<std::int64_t>(0, bound - 1)(generator_);
}

double SystemRandom::halfOpen(double low, double high) {
    return between(low, high, below(steps));
}

double SystemRandom::closed(double low, double high) {
    return between(low, high, below(steps + 1));
}

}  // namespace tidewright::platform
