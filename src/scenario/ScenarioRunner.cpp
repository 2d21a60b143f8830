#include "scenario/ScenarioRunner.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

namespace tidewright::scenario {

namespace {

constexpr std::string_view between = " ; ";

/// As in "00:01:12.000".
std::string clockText(platform::MainLoop::Duration elapsed) {
    const std::chrono::hh_mm_ss clock(std::chrono::floor<std::chrono::milliseconds>(elapsed));
    return fmt::format("{:02}:{:02}:{:02}.{:03}", clock.hours().count(), clock.minutes().count(),
                       clock.seconds().count(), clock.subseconds().count());
}

}  // namespace

ScenarioRunner::ScenarioRunner(platform::PacedMainLoop& loop, gateway::Assembly& assembly,
                               Scenario scenario, Reports reports)
    : loop_(loop),
      assembly_(assembly),
      scenario_(std::move(scenario)),
      reports_(std::move(reports)) {}

void ScenarioRunner::begin() {
    start_ = loop_.now();
    lastStep_ = start_;
    proceed();
}

/// Plays what is due now, then has the loop come back when more is.
void ScenarioRunner::proceed() {
    while (!isOver_ && next_ < scenario_.steps.size()) {
        const Duration wait = playNext();
        if (wait == Duration::zero()) continue;
        loop_.firstAfter(wait, lifetime_.guard([this] { proceed(); }));
        return;
    }
}

/// Plays the next step as far as it goes now; how long until there is more to do.
ScenarioRunner::Duration ScenarioRunner::playNext() {
    const Step& step = scenario_.steps[next_];
    if (!isLooking_) {
        const Duration wait = timeUntil(step);
        if (wait > Duration::zero()) return wait;
        work(step);
        isLooking_ = true;
    }
    return isOver_ ? Duration::zero() : look(step);
}

ScenarioRunner::Duration ScenarioRunner::timeUntil(const Step& step) const {
    platform::Instant due = lastStep_;
    if (step.timing == Timing::at) due = start_ + step.time;
    if (step.timing == Timing::after) due = lastStep_ + step.time;
    return std::max(due - loop_.now(), Duration::zero());
}

void ScenarioRunner::work(const Step& step) {
    std::vector<std::string> parts;
    std::string problem;
    if (!step.set.empty()) parts.push_back(write(step.set, problem));
    for (const std::string& action : step.actions)
        if (problem.empty()) parts.push_back(perform(action, problem));
    if (problem.empty() && !step.say.empty()) parts.push_back(step.say);
    if (parts.empty() && step.expectations.empty()) parts.emplace_back(step.ends ? "fin" : "rien");
    if (!parts.empty()) writeLine(fmt::format("{}", fmt::join(parts, between)));
    if (!problem.empty()) fail(problem);
}

/// What is set, for the step's line; `problem` says why where it is refused.
std::string ScenarioRunner::write(const gateway::Settings::Texts& texts, std::string& problem) {
    auto& settings = assembly_.settings;
    for (const auto& refusal : settings.writeTexts(texts))
        problem += (problem.empty() ? "" : " ") + refusal.reason;
    if (!problem.empty()) return problem;
    std::vector<std::string> parts;
    for (const auto& [name, value] : texts) {
        const bool acts = settings.at(name).acts == gateway::SettingActs::now;
        const bool isLater = !acts && assembly_.gateway.isRunning;
        parts.push_back(
            fmt::format("{} = {}{}", name, value, isLater ? " (au prochain démarrage)" : ""));
    }
    return fmt::format("{}", fmt::join(parts, between));
}

/// What is done, for the step's line; `problem` says why where it is refused.
std::string ScenarioRunner::perform(const std::string& action, std::string& problem) {
    if (action == "stop") isStopWanted_ = true;
    if (action == "start" || action == "restart") isStopWanted_ = false;
    const auto reason = assembly_.actions.find(action)->perform();
    if (!reason) return action;
    problem = fmt::format("{} : {}", action, *reason);
    return problem;
}

/// Looks whether what `step` expects holds; how long until the next look, or zero where it is
/// settled.
ScenarioRunner::Duration ScenarioRunner::look(const Step& step) {
    const bool holds = std::ranges::all_of(
        step.expectations, [this](const Expectation& each) { return each.holds(assembly_); });
    const Duration left =
        step.timing == Timing::within ? lastStep_ + step.time - loop_.now() : Duration::zero();
    if (!holds && left > Duration::zero()) return std::min<Duration>(left, lookPeriod);
    report(step);
    if (holds) complete(step);
    return Duration::zero();
}

void ScenarioRunner::report(const Step& step) {
    std::vector<std::string> unmet;
    for (const Expectation& each : step.expectations) {
        const std::string found = each.found(assembly_);
        const bool holds = each.holds(assembly_);
        writeLine(fmt::format("{} : {} {}", found, holds ? "attendu," : "inattendu, il fallait",
                              each.wanted));
        if (!holds) unmet.push_back(fmt::format("{}, il fallait {}", found, each.wanted));
    }
    if (!unmet.empty()) fail(fmt::format("{}.", fmt::join(unmet, between)));
}

void ScenarioRunner::complete(const Step& step) {
    isLooking_ = false;
    lastStep_ = loop_.now();
    ++next_;
    if (!step.ends) return;
    isOver_ = true;
    reports_.end(0);
}

void ScenarioRunner::fail(std::string_view why) {
    isOver_ = true;
    reports_.write(fmt::format("ÉCHEC : à {}, {}\n", clock(), why));
    reports_.end(3);
}

void ScenarioRunner::writeLine(std::string_view text) {
    reports_.write(fmt::format("{}  {}\n", clock(), text));
}

std::string ScenarioRunner::clock() const {
    return clockText(loop_.now() - start_);
}

}  // namespace tidewright::scenario
