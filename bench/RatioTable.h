#pragma once

#include <string>
#include <vector>

namespace tidewright::bench {

/// One line of the table: how long a subject takes, against something that everybody can imagine.
struct Ratio {
    std::string subject;       ///< the name of a benchmark
    std::string baseline;      ///< the name of another
    double baselineTimes = 1;  ///< the baseline counts as this many of its runs
    double atMost = 1;         ///< the goal
};

/// One line of the other table: how much faster than life a simulation runs.
struct Speed {
    std::string subject;      ///< the name of a benchmark
    double simulatedSeconds;  ///< in one run of it
    double atLeast;           ///< the goal
};

/// Runs every registered benchmark, keeping the best of a few repetitions, and prints both tables.
void printTables(const std::vector<Ratio>& ratios, const std::vector<Speed>& speeds);

}  // namespace tidewright::bench
