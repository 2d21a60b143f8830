#pragma once

#include <limits>
#include <optional>

#include "platform/Lifetime.h"
#include "platform/MainLoop.h"
#include "platform/VirtualMainLoop.h"

namespace tidewright::platform {

/// A run's own time, in step with the machine's at a given speed. Everything due runs at exactly
/// its due time of this loop's clock, in order, however late the machine is: nothing is skipped, so
/// what happens never depends on the machine's load. What is posted is taken in between, at the
/// time that the run has reached.
///
/// Up to a second behind the machine's clock the run catches up as fast as it can; further behind,
/// after a suspend for instance, it goes on from where it is, that much later.
class PacedMainLoop final : public MainLoop {
public:
    /// As fast as the machine can.
    static constexpr double unlimited = std::numeric_limits<double>::infinity();

    /// Takes its turns from `machine`, which must outlive it, and begins with its first turn there.
    /// `start` is the wall clock's first reading; `speed` (> 0) is how many seconds of the run pass
    /// in one of the machine's.
    PacedMainLoop(MainLoop& machine, WallTime start, double speed);

    Instant now() const override { return time_.now(); }
    WallTime wallClock() const override { return time_.wallClock(); }
    [[nodiscard]] Subscription every(Duration period, Task task) override;
    void after(Duration delay, Task task) override;
    void post(Task task) override;

    /// As after(), but ahead of everything else that is due at that instant.
    void firstAfter(Duration delay, Task task);

    /// The run's time stands still from the end of the instant under way until there was a resume()
    /// for each hold(); what is posted is still taken.
    void hold();
    void resume();

private:
    void step();
    void awaitNextDue();
    void moveClock();
    Instant machineTimeOf(Instant due) const;
    void keepStepFrom(Instant due);

    MainLoop& machine_;
    VirtualMainLoop time_;
    double speed_;
    Instant anchor_;           // of the run's time, when the machine's was
    Instant machineAtAnchor_;  // this
    std::optional<Instant> awaited_;
    std::uint64_t wait_ = 0;  // the number of the latest; those before it are over
    bool isStepping_ = false;
    int holds_ = 0;
    Lifetime lifetime_;
};

}  // namespace tidewright::platform
