#include <cstdlib>
#include <exception>
#include <iostream>

#include "Golden.h"

using namespace tidewright::golden;

namespace {

void compareEverythingIn(const char* directory) {
    Tables tables(directory);
    compareChance(tables);
    compareWind(tables);
    compareKinematics(tables);
    compareSailing(tables);
    compareAnchor(tables);
    compareEngine(tables);
    compareTraffic(tables);
    compareNMEA(tables);
    compareAIS(tables);
    compareGateway(tables);
    compareNetwork(tables);
    compareCommandLine(tables);
    tables.report();
}

}  // namespace

int main() {
    const char* chosen = std::getenv("TIDEWRIGHT_GOLDEN_DIR");
    const char* directory = chosen != nullptr ? chosen : TIDEWRIGHT_DEFAULT_GOLDEN_DIR;
    std::cout << "Golden tables of " << directory << '\n';
    try {
        compareEverythingIn(directory);
    } catch (const std::exception& error) {
        std::cout << "  " << error.what() << '\n';
        return 1;
    }
    return failures() == 0 ? 0 : 1;
}
