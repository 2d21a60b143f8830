#include <cstdlib>
#include <iostream>

#include "Golden.h"

using namespace tidewright::golden;

int main() {
    const char* chosen = std::getenv("TIDEWRIGHT_GOLDEN_DIR");
    const char* directory = chosen != nullptr ? chosen : TIDEWRIGHT_DEFAULT_GOLDEN_DIR;
    std::cout << "Golden tables of " << directory << '\n';
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
    return failures() == 0 ? 0 : 1;
}
