#include "app/HeadlessProgram.h"

#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "app/ErrorLine.h"
#include "app/HeadlessRunner.h"
#include "app/RunPlan.h"
#include "network/ReplayFile.h"
#include "platform/AsioMainLoop.h"
#include "platform/PacedMainLoop.h"
#include "platform/StandardError.h"
#include "platform/SystemRandom.h"
#include "scenario/ScenarioFile.h"
#include "simulation/SeededRandom.h"

namespace tidewright::app {

namespace {

/// What a run is made of on this machine.
class HeadlessProgram {
public:
    explicit HeadlessProgram(const Arguments& arguments)
        : arguments_(arguments), plan_(RunPlan::of(arguments)) {}

    int run() {
        if (!readScenario() || !isPossible()) return 2;
        if (plan_.hasOwnClock()) makeClock();
        if (!openReplay()) return 2;
        play();
        if (interrupt_) {
            std::signal(*interrupt_, SIG_DFL);
            std::raise(*interrupt_);
        }
        return exitStatus_.value_or(1);
    }

private:
    // Each answers whether the run may go on; where it may not, it has said why.

    bool readScenario() {
        if (!plan_.scenario) return true;
        const auto apply = [this](gateway::Assembly& assembly) {
            (void)CommandLine::applyAll(arguments_, assembly);
        };
        auto file = scenario::readScenarioFile(
            *plan_.scenario, {.apply = apply, .replays = plan_.replay.has_value()});
        platform::writeStandardError(file.complaint);
        if (!file.scenario) return false;
        scenario_ = std::move(file.scenario);
        plan_.complete(*scenario_);
        return true;
    }

    bool isPossible() const {
        const auto problem =
            plan_.problem(arguments_, scenario_ ? scenario_->set : gateway::Settings::Texts());
        if (problem) platform::writeStandardError(errorLine(*problem));
        return !problem;
    }

    bool openReplay() {
        if (!plan_.replay) return true;
        auto opened = network::openReplay(*plan_.replay, *clock_);
        if (const auto* why = std::get_if<std::string>(&opened)) {
            platform::writeStandardError(errorLine(*why));
            return false;
        }
        replay_ = std::get<std::unique_ptr<network::LineSource>>(std::move(opened));
        return true;
    }

    void makeClock() {
        if (!plan_.seed) plan_.seed = machineRandom_.bits();
        if (!plan_.start)
            plan_.start = std::chrono::floor<std::chrono::seconds>(machine_.wallClock());
        random_.emplace(*plan_.seed);
        clock_.emplace(machine_, *plan_.start, plan_.speed.value_or(1));
    }

    gateway::Host host() {
        if (clock_) return gateway::Host::machine(*clock_, machine_, *random_, {});
        return gateway::Host::machine(machine_, machine_, machineRandom_, {});
    }

    void play() {
        HeadlessRunner runner(
            arguments_, host(),
            {.write = platform::writeStandardError, .end = [this](int status) { end(status); }},
            {.plan = plan_,
             .clock = clock_ ? &*clock_ : nullptr,
             .scenario = std::move(scenario_),
             .replay = std::move(replay_),
             .hold = [this] { clock_ ? clock_->hold() : machine_.hold(); },
             .resume = [this] { clock_ ? clock_->resume() : machine_.resume(); }});
        machine_.onInterrupt([this, &runner](int signal) {
            interrupt_ = signal;
            runner.interrupt();
        });
        if (!exitStatus_) machine_.run();
    }

    void end(int status) {
        exitStatus_ = status;
        machine_.stop();
    }

    const Arguments& arguments_;
    RunPlan plan_;
    platform::SystemRandom machineRandom_;
    platform::AsioMainLoop machine_;
    std::optional<simulation::SeededRandom> random_;  // of a run with a clock of its own
    std::optional<platform::PacedMainLoop> clock_;    // likewise
    std::optional<scenario::Scenario> scenario_;
    std::unique_ptr<network::LineSource> replay_;
    std::optional<int> exitStatus_;
    std::optional<int> interrupt_;
};

}  // namespace

int runHeadless(const Arguments& arguments) {
    return HeadlessProgram(arguments).run();
}

}  // namespace tidewright::app
