// Days at sea in virtual time, once in every mode, each twice from the same seed. Prints figures;
// ends with 1 where the schedule drifts, a value leaves its range, memory grows, or the two runs
// are not the same to the byte.
//
//     tidewright_days_soak [DAYS]

#include <fmt/format.h>

#include <charconv>
#include <chrono>
#include <fstream>
#include <string_view>

#include "OwnMemory.h"
#include "StreamInspector.h"
#include "gateway/Assembly.h"
#include "platform/Check.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/ControlMode.h"
#include "simulation/SeededRandom.h"
#include "support/ReadOutHost.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;
using simulation::ControlMode;

/// A boat, her gateway and the time around them, the same every time for the same seed.
class World {
public:
    World(ControlMode mode, std::uint64_t seed, ReadOutServer::Reader reader)
        : random_(seed), reader_(std::move(reader)) {
        assembly_.config.udpEnabled = false;
        assembly_.engine.mode = mode;
        assembly_.gateway.start();
        platform::check(assembly_.gateway.isRunning, "the gateway cannot start");
    }

    void advance(platform::MainLoop::Duration span) { loop_.advance(span); }

    /// FNV-1a, 64 bits, of every byte sent.
    std::uint64_t digest() const { return digest_; }

private:
    void read(const std::string& sentence) {
        for (const char each : sentence)
            digest_ = (digest_ ^ static_cast<unsigned char>(each)) * 1'099'511'628'211U;
        reader_(sentence);
    }

    simulation::SeededRandom random_;
    ReadOutServer::Reader reader_;
    std::uint64_t digest_ = 14'695'981'039'346'656'037U;
    platform::VirtualMainLoop loop_{std::chrono::sys_days{std::chrono::June / 1 / 2026} + 12h};
    gateway::Assembly assembly_{
        readOutHost(loop_, random_, [this](const std::string& each) { read(each); })};
};

/// What the default rates make of so many days: how often each sentence must have come.
std::map<std::string, std::uint64_t> expectedCounts(int days) {
    const auto seconds = static_cast<std::uint64_t>(days) * 86'400;
    constexpr std::uint64_t vessels = 5;
    return {{"GPRMC", seconds},
            {"GPGGA", seconds},
            {"GPVTG", seconds},
            {"IIHDT", seconds * 5},
            {"IIHDG", seconds * 5},
            {"IIVHW", seconds * 2},
            {"IIMWV", seconds * 4},
            {"IIDBT", seconds},
            {"IIDPT", seconds},
            {"IIMTW", seconds / 5},
            {"AIVDM", seconds * vessels + seconds / 10 * vessels * 2}};
}

/// Whether all went well.
bool spendDays(ControlMode mode, int days) {
    StreamInspector inspector;
    const std::uint64_t seed = 20'260'601;
    World first(mode, seed, [&inspector](const std::string& each) { inspector.take(each); });
    World second(mode, seed, [](const std::string&) {});
    bool isSame = true;
    long memoryAfterADay = 0;
    for (int day = 0; day < days; ++day) {
        first.advance(24h);
        second.advance(24h);
        isSame = isSame && first.digest() == second.digest();
        if (day == 0) memoryAfterADay = ownMemoryKiB();
    }
    const long growth = ownMemoryKiB() - memoryAfterADay;
    const bool isPunctual = inspector.countByAddress() == expectedCounts(days);

    fmt::print(
        "  {:<7} {} days, {} RMC, {} AIVDM: {}; the same seed twice: {} ({:016x}); grown by {} KiB "
        "after the first day\n",
        rawValue(mode), days, inspector.countByAddress().at("GPRMC"),
        inspector.countByAddress().at("AIVDM"),
        isPunctual ? "every sentence as often as its rate says" : "NOT AS OFTEN AS THE RATES SAY",
        isSame ? "the same bytes" : "OTHER BYTES", first.digest(), growth);
    for (const auto& [fault, sentence] : inspector.faults())
        fmt::print("  FAULT, {}: {}", fault, sentence);
    constexpr long mostGrowthKiB = 256;
    return isPunctual && isSame && growth <= mostGrowthKiB && inspector.faults().empty();
}

}  // namespace
}  // namespace tidewright::soak

int main(int count, char** arguments) {
    const std::string_view text = count > 1 ? arguments[1] : "30";
    int days = 0;
    std::from_chars(text.data(), text.data() + text.size(), days);
    tidewright::platform::check(days > 0, "how many days?");
    bool isWell = true;
    for (const auto mode : tidewright::simulation::allControlModes)
        isWell = tidewright::soak::spendDays(mode, days) && isWell;
    return isWell ? 0 : 1;
}
