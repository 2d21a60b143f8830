#pragma once

#include <cstdint>
#include <deque>
#include <map>

#include "platform/RandomSource.h"

namespace tidewright {

/// Chance that a test writes beforehand: each kind of draw answers from its own list, in order, and
/// with `otherwise` once the list is spent.
class ScriptedRandom final : public platform::RandomSource {
public:
    std::deque<std::uint64_t> seeds;                                ///< for bits()
    std::map<std::int64_t, std::deque<std::int64_t>> wholeNumbers;  ///< for below(), by bound
    std::deque<double> numbers;                                     ///< for halfOpen() and closed()

    std::uint64_t bits() override { return take<std::uint64_t>(seeds, ++unscriptedBits_); }
    std::int64_t below(std::int64_t bound) override {
        return take<std::int64_t>(wholeNumbers[bound], 0);
    }
    double halfOpen(double, double) override { return take<double>(numbers, 0); }
    double closed(double, double) override { return take<double>(numbers, 0); }

private:
    template <typename Value>
    static Value take(std::deque<Value>& script, Value otherwise) {
        if (script.empty()) return otherwise;
        const Value next = script.front();
        script.pop_front();
        return next;
    }

    std::uint64_t unscriptedBits_ = 0;  // so that identifiers differ
};

}  // namespace tidewright
