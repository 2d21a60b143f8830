#include "platform/PacedMainLoop.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "platform/Check.h"

namespace tidewright::platform {

namespace {
using namespace std::chrono_literals;

/// How far behind the machine's clock a run still catches up.
constexpr auto patience = 1s;

/// After so many the machine's loop serves what else waits.
constexpr int instantsATurn = 64;

MainLoop::Duration scaled(MainLoop::Duration span, double factor) {
    return MainLoop::Duration(std::llround(static_cast<double>(span.count()) * factor));
}

}  // namespace

PacedMainLoop::PacedMainLoop(MainLoop& machine, WallTime start, double speed)
    : machine_(machine), time_(start), speed_(speed), machineAtAnchor_(machine.now()) {
    check(speed > 0, "a run's speed must be above zero");
}

Subscription PacedMainLoop::every(Duration period, Task task) {
    auto timer = time_.every(period, std::move(task));
    awaitNextDue();
    return timer;
}

void PacedMainLoop::after(Duration delay, Task task) {
    time_.after(delay, std::move(task));
    awaitNextDue();
}

void PacedMainLoop::firstAfter(Duration delay, Task task) {
    time_.firstAfter(delay, std::move(task));
    awaitNextDue();
}

void PacedMainLoop::post(Task task) {
    machine_.post(lifetime_.guard([this, task = std::move(task)] {
        moveClock();
        task();
    }));
}

void PacedMainLoop::hold() {
    ++holds_;
}

void PacedMainLoop::resume() {
    check(holds_ > 0, "a run that is resumed must be held");
    if (--holds_ > 0) return;
    keepStepFrom(time_.now());
    awaited_.reset();
    awaitNextDue();
}

/// Runs what is due, instant by instant, then waits for what is next.
void PacedMainLoop::step() {
    isStepping_ = true;
    for (int i = 0; i < instantsATurn && holds_ == 0; ++i) {
        const auto due = time_.nextDue();
        if (!due) break;
        const auto lateness = machine_.now() - machineTimeOf(*due);
        if (lateness < 0s) break;
        if (lateness > patience) keepStepFrom(*due);
        time_.advance(std::max(*due - time_.now(), Duration::zero()));
    }
    isStepping_ = false;
    awaited_.reset();
    awaitNextDue();
}

void PacedMainLoop::awaitNextDue() {
    if (isStepping_ || holds_ > 0) return;
    const auto due = time_.nextDue();
    if (!due || awaited_ == due) return;
    awaited_ = due;
    const auto delay = std::max(machineTimeOf(*due) - machine_.now(), Duration::zero());
    machine_.after(delay, lifetime_.guard([this, itsWait = ++wait_] {
        if (itsWait == wait_) step();
    }));
}

/// To where the run would be if it were in step, but never past what is due.
void PacedMainLoop::moveClock() {
    if (holds_ > 0 || speed_ == unlimited) return;
    const Instant inStep = anchor_ + scaled(machine_.now() - machineAtAnchor_, speed_);
    const Instant latest = std::min(inStep, time_.nextDue().value_or(inStep));
    time_.stall(std::max(latest - time_.now(), Duration::zero()));
}

Instant PacedMainLoop::machineTimeOf(Instant due) const {
    return machineAtAnchor_ + scaled(due - anchor_, 1 / speed_);
}

/// From now on the machine's present goes with `due`.
void PacedMainLoop::keepStepFrom(Instant due) {
    anchor_ = due;
    machineAtAnchor_ = machine_.now();
}

}  // namespace tidewright::platform
