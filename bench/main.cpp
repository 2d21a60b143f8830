#include <benchmark/benchmark.h>

#include "RatioTable.h"

int main(int argc, char** argv) {
    using tidewright::bench::Ratio;
    benchmark::Initialize(&argc, argv);
    std::vector<Ratio> ratios{{"an engine step under sail", "std::sin", 40, 3.0}};
    for (const char* name : {"RMC", "GGA", "VTG", "HDT", "HDG", "VHW", "MWV", "DBT", "DPT", "MTW"})
        ratios.push_back({name, std::string("print/") + name, 1, 1.0});
    ratios.push_back({"AIS position report", "print/AIS", 2, 1.0});
    tidewright::bench::printTables(ratios, {{"24 hours under sail, 864,000 steps", 86'400, 50'000},
                                            {"a minute of default emission", 60, 10'000}});
}
