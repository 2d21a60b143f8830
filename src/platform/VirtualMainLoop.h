#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <utility>

#include "platform/MainLoop.h"

namespace tidewright::platform {

/// A loop whose time passes only when it is told to: a whole day runs in an instant, and the same
/// calls give the same turns, every time, on every machine. For one thread.
class VirtualMainLoop final : public MainLoop {
public:
    /// `start` is the wall clock's first reading; the steady clock starts at zero.
    explicit VirtualMainLoop(WallTime start = WallTime{}) : wallClockAtZero_(start) {}

    Instant now() const override { return now_; }
    WallTime wallClock() const override { return wallClockAtZero_ + now_.time_since_epoch(); }
    [[nodiscard]] Subscription every(Duration period, Task task) override;
    void after(Duration delay, Task task) override;
    void post(Task task) override;

    /// As after(), but ahead of everything else that is due at that instant.
    void firstAfter(Duration delay, Task task);

    /// When the next task is due, which is now() at the earliest unless the loop was stalled;
    /// nothing where none waits. Timers let go of may still count once.
    std::optional<Instant> nextDue() const;

    /// Lets `span` (>= 0) pass, running what falls due in it at its own time, in order; what is due
    /// at the same instant runs in the order in which it was asked for.
    void advance(Duration span);

    /// Lets `span` (>= 0) pass as for a program held up or suspended: what fell due in it runs
    /// late, at the next advance(), and repeating timers skip the turns they missed.
    void stall(Duration span) { now_ += span; }

    /// Sets the wall clock `step` ahead, or back when negative, as a person or a time server does.
    void stepWallClock(Duration step) { wallClockAtZero_ += step; }

private:
    struct Alarm {
        Duration period;
        Task task;
    };
    using Turn = std::pair<Instant, std::int64_t>;  // when due, then who asked first

    void ring(Turn turn, const std::shared_ptr<const Alarm>& alarm);

    WallTime wallClockAtZero_;
    Instant now_{};
    std::int64_t asked_ = 0;
    std::int64_t askedToBeFirst_ = std::numeric_limits<std::int64_t>::min();
    std::map<Turn, std::weak_ptr<const Alarm>> repeating_;
    std::map<Turn, Task> once_;
};

}  // namespace tidewright::platform
