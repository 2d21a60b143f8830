#pragma once

#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "scenario/Quantity.h"

namespace tidewright::scenario {

/// A bound as scenarios write it: digits, and for what is measured perhaps a point and more digits.
struct Bound {
    double value = 0;
    double halfDigit = 0;  ///< half of the last digit written; 0 for a count
    std::string text;

    /// Nothing for other texts.
    static std::optional<Bound> parse(std::string_view text, const Quantity& quantity);
};

/// That a quantity lies within bounds, both included.
struct Expectation {
    const Quantity* quantity = nullptr;
    double from = 0;
    double to = std::numeric_limits<double>::infinity();
    std::string wanted = {};  ///< the same in French, as in "au moins 3.5 nd"

    /// A count is that one; what is measured is that when rounded to the digits written.
    static Expectation equal(const Quantity& quantity, const Bound& bound);

    /// At least one of both; `least` is not above `most`.
    static Expectation between(const Quantity& quantity, const std::optional<Bound>& least,
                               const std::optional<Bound>& most);

    /// Whether it holds now; it does not where it cannot be judged.
    bool holds(const gateway::Assembly& assembly) const;

    /// What is, in French, as in "sog = 3.142 nd".
    std::string found(const gateway::Assembly& assembly) const;
};

}  // namespace tidewright::scenario
