#include "RatioTable.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <iostream>
#include <map>

namespace tidewright::bench {

namespace {

/// Keeps the least CPU time of each benchmark, in seconds a run, and prints nothing.
class BestTimes : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double seconds = run.cpu_accumulated_time / static_cast<double>(run.iterations);
            const auto [best, isFirst] = best_.emplace(run.run_name.function_name, seconds);
            if (!isFirst && seconds < best->second) best->second = seconds;
        }
    }

    double of(const std::string& name) const { return best_.at(name); }

private:
    std::map<std::string, double> best_;
};

std::string verdict(bool reached) {
    return reached ? "reached" : "MISSED";
}

}  // namespace

void printTables(const std::vector<Ratio>& ratios, const std::vector<Speed>& speeds) {
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    std::cout << fmt::format("{:<34}{:<34}{:>10}{:>8}\n", "what", "against", "ratio", "goal");
    for (const auto& [subject, baseline, baselineTimes, atMost] : ratios) {
        const double ratio = times.of(subject) / (baselineTimes * times.of(baseline));
        const std::string against =
            baselineTimes == 1 ? baseline : fmt::format("{} x {}", baselineTimes, baseline);
        std::cout << fmt::format("{:<34}{:<34}{:>10.2f}{:>8}  {}\n", subject, against, ratio,
                                 fmt::format("≤ {}", atMost), verdict(ratio <= atMost));
    }
    std::cout << fmt::format("\n{:<68}{:>10}{:>8}\n", "what", "x life", "goal");
    for (const auto& [subject, simulatedSeconds, atLeast] : speeds) {
        const double speed = simulatedSeconds / times.of(subject);
        std::cout << fmt::format("{:<68}{:>10.0f}{:>8}  {}\n", subject, speed,
                                 fmt::format("> {}", atLeast), verdict(speed > atLeast));
    }
}

}  // namespace tidewright::bench
