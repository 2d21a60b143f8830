// A crowd of TCP clients at the real gateway, in a process of their own; every byte that they
// receive is compared with what was sent. Prints figures; ends with 1 after any loss, or when
// memory grew beyond its bound.
//
//     tidewright_crowd_soak [--readers 1000] [--sleepers 0] [--hertz 0] [--targets 5] [--seconds
//     300]
//
// --hertz 0 leaves every family at its default rate.

#include <fmt/format.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "Churn.h"
#include "Crowd.h"
#include "Journal.h"
#include "JournalingServer.h"
#include "OwnMemory.h"
#include "gateway/Assembly.h"
#include "platform/AsioMainLoop.h"
#include "platform/Check.h"
#include "platform/SystemRandom.h"
#include "support/FreePort.h"

namespace tidewright::soak {
namespace {
using namespace std::chrono_literals;

struct Options {
    std::map<std::string, long, std::less<>> values{{"--readers", 1000}, {"--sleepers", 0},
                                                    {"--churn", 0},      {"--hertz", 0},
                                                    {"--targets", 5},    {"--seconds", 300}};

    long operator[](std::string_view name) const { return values.find(name)->second; }
    std::size_t count(std::string_view name) const {
        return static_cast<std::size_t>((*this)[name]);
    }
};

Options optionsFrom(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; i += 2) {
        const auto option = options.values.find(std::string_view(arguments[i]));
        const std::string_view value = i + 1 < count ? arguments[i + 1] : "";
        platform::check(option != options.values.end(), "no such option");
        const auto [end, error] =
            std::from_chars(value.data(), value.data() + value.size(), option->second);
        platform::check(
            error == std::errc{} && end == value.data() + value.size() && option->second >= 0,
            "an option needs a whole number");
    }
    return options;
}

void setEveryRate(gateway::SimulationConfig& config, double hertz) {
    for (const auto& each : gateway::sentenceFamilies) config.*each.hertz = hertz;
}

/// What the gateway holds at one moment.
struct Holdings {
    long memoryKiB = 0;
    std::ptrdiff_t descriptors = 0;
    std::size_t clients = 0;
};

/// The gateway's side: waits for the crowd, emits for the given time, and lets the crowd go.
class Emission {
public:
    /// The record of recent sentences, at most 1 MiB of text, with what it takes to keep it.
    static constexpr long mostGrowthKiB = 8 * 1024;

    Emission(const Options& options, Journal& journal, std::uint16_t port, pid_t crowd)
        : options_(options), journal_(journal), crowd_(crowd) {
        assembly_.faults.stopStream = true;
        config_.tcpPort = port;
        config_.udpEnabled = false;
        config_.aisTargetCount = options["--targets"];
        if (options["--hertz"] > 0) setEveryRate(config_, static_cast<double>(options["--hertz"]));
    }

    /// 0 after a run without loss whose holdings came back to what they were, else 1.
    int run() {
        gateway_.start();
        platform::check(gateway_.isRunning, "the gateway cannot start");
        const auto sampling = loop_.every(100ms, [this] { look(); });
        loop_.after(30s, [this] { platform::check(begun_, "the crowd never came in whole"); });
        loop_.run();
        gateway_.stop();
        printHoldings();
        const bool isLossless = WIFEXITED(crowdStatus_) && WEXITSTATUS(crowdStatus_) == 0;
        return isLossless && cameBack() ? 0 : 1;
    }

private:
    gateway::Host host() {
        auto host = gateway::Host::machine(loop_, loop_, random_, {});
        host.tcp = std::make_unique<JournalingServer>(loop_, journal_);
        return host;
    }

    void look() {
        mostMemoryKiB_ = std::max(mostMemoryKiB_, ownMemoryKiB());
        if (waitpid(crowd_, &crowdStatus_, WNOHANG) == crowd_) loop_.stop();
        const std::size_t everybody = options_.count("--readers") + options_.count("--sleepers");
        if (!begun_ && gateway_.tcpClients->size() == everybody) begin();
    }

    void begin() {
        begun_ = true;
        before_ = holdings();
        assembly_.faults.stopStream = false;
        const auto untilTheLastHasGone = options_["--churn"] > 0 ? 7s : 0s;
        loop_.after(std::chrono::seconds(options_["--seconds"]) + untilTheLastHasGone, [this] {
            assembly_.faults.stopStream = true;
            after_ = holdings();
            loop_.after(500ms, [this] { journal_.close(); });
        });
    }

    Holdings holdings() const {
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return {
            ownMemoryKiB(),
            std::distance(std::filesystem::begin(descriptors), std::filesystem::end(descriptors)),
            gateway_.tcpClients->size()};
    }

    bool cameBack() const {
        return after_.descriptors == before_.descriptors && after_.clients == before_.clients &&
               mostMemoryKiB_ - before_.memoryKiB <= mostGrowthKiB;
    }

    void printHoldings() const {
        fmt::print(
            "  gateway, before and after: {} and {} clients listed, {} and {} descriptors, "
            "{:.1f} and {:.1f} MiB, {:.1f} at most\n",
            before_.clients, after_.clients, before_.descriptors, after_.descriptors,
            mebibytes(before_.memoryKiB), mebibytes(after_.memoryKiB), mebibytes(mostMemoryKiB_));
    }

    static double mebibytes(long kib) { return static_cast<double>(kib) / 1024; }

    const Options& options_;
    Journal& journal_;
    pid_t crowd_;
    int crowdStatus_ = 0;
    bool begun_ = false;
    Holdings before_;
    Holdings after_;
    long mostMemoryKiB_ = 0;

    platform::SystemRandom random_;
    platform::AsioMainLoop loop_;
    gateway::Assembly assembly_{host()};
    gateway::SimulationConfig& config_ = assembly_.config;
    gateway::GatewaySimulator& gateway_ = assembly_.gateway;
};

void print(const Crowd& crowd, const Journal& journal, const Options& options) {
    const auto& latencies = crowd.latencies();
    fmt::print("  {} readers: {} sentences of {} bytes sent, {} received, {} faults\n",
               options["--readers"], journal.marks().size(), journal.bytes().size(),
               latencies.total(), crowd.faults().size());
    fmt::print(
        "  arrival after the broadcast: median {:.1f} ms, 99th percentile {:.1f} ms, "
        "longest {:.1f} ms\n",
        latencies.quantile(0.5), latencies.quantile(0.99), latencies.quantile(1));
    if (options["--sleepers"] > 0) {
        fmt::print("  {} sleepers: {} whole sentences found, {} missed\n", options["--sleepers"],
                   crowd.sleepersFound(), crowd.sleepersMissed());
    }
    for (const auto& [fault, count] : crowd.faults())
        fmt::print("  FAULT, {} times: {}\n", count, fault);
}

void churnOnceBegun(const Options& options, const Journal& journal, std::uint16_t port) {
    while (journal.marks().empty()) std::this_thread::sleep_for(10ms);
    const int came = churn(port, static_cast<int>(options["--churn"]),
                           std::chrono::seconds(options["--seconds"]));
    fmt::print("  {} others came and went\n", came);
}

/// The crowd's side; 0 after a run without loss.
int joinAsCrowd(const Options& options, const Journal& journal, std::uint16_t port) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    Crowd crowd(journal, port, options.count("--readers"), options.count("--sleepers"));
    std::thread passersBy;
    if (options["--churn"] > 0)
        passersBy = std::thread(churnOnceBegun, options, std::cref(journal), port);
    crowd.readAlong();
    crowd.wakeSleepers();
    print(crowd, journal, options);
    if (passersBy.joinable()) passersBy.join();
    return crowd.faults().empty() && !journal.marks().empty() ? 0 : 1;
}

void allowManyDescriptors(std::size_t clients) {
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    limit.rlim_cur =
        std::min<rlim_t>(limit.rlim_max, std::max<rlim_t>(limit.rlim_cur, clients + 512));
    setrlimit(RLIMIT_NOFILE, &limit);
}

int run(const Options& options) {
    allowManyDescriptors(options.count("--readers") + options.count("--sleepers"));
    Journal journal;
    const std::uint16_t port = network::freePort();
    const pid_t crowd = fork();
    platform::check(crowd >= 0, "cannot fork");
    if (crowd == 0) {
        const int status = joinAsCrowd(options, journal, port);
        std::fflush(stdout);
        _exit(status);
    }
    return Emission(options, journal, port, crowd).run();
}

}  // namespace
}  // namespace tidewright::soak

int main(int count, char** arguments) {
    return tidewright::soak::run(tidewright::soak::optionsFrom(count, arguments));
}
