#pragma once

#include <chrono>
#include <functional>

#include "platform/Subscription.h"

namespace tidewright::platform {

/// A moment on the steady clock: only differences between two of them mean anything.
using Instant = std::chrono::time_point<std::chrono::steady_clock, std::chrono::nanoseconds>;

/// A moment of civil time, UTC, as sentences and console lines show it.
using WallTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// Where the program gets its time and its turns to run.
///
/// Everything runs on the one thread that drives the loop, one task at a time: no locks anywhere.
/// A task must not throw. Let go of every timer before the loop is destroyed.
class MainLoop {
public:
    using Duration = std::chrono::nanoseconds;
    using Task = std::function<void()>;

    virtual ~MainLoop() = default;

    /// For schedules, ticks and steps: never jumps.
    virtual Instant now() const = 0;

    /// For stamps only: jumps when somebody sets the machine's clock.
    virtual WallTime wallClock() const = 0;

    /// Runs `task` every `period` (> 0), for the first time one period from now, until the returned
    /// handle is let go. Keeps to that grid: a late turn does not delay the next one, and turns
    /// missed while the thread was held up are skipped, not made up for.
    [[nodiscard]] virtual Subscription every(Duration period, Task task) = 0;

    /// Runs `task` once, `delay` (>= 0) from now. Nothing cancels it: a task whose owner may be
    /// gone by then guards itself (see Lifetime).
    virtual void after(Duration delay, Task task) = 0;

    /// Runs `task` soon, after what is already waiting. The one operation that any thread may call.
    virtual void post(Task task) = 0;
};

}  // namespace tidewright::platform
