#pragma once

#include <map>
#include <memory>
#include <utility>

#include "platform/MainLoop.h"

namespace tidewright {

/// A loop whose clocks stand where the test sets them and whose timers never ring: the test calls
/// what they would have called.
class HandCrankedLoop final : public platform::MainLoop {
public:
    platform::Instant now() const override { return platform::Instant(clock_.time_since_epoch()); }
    platform::WallTime wallClock() const override { return clock_; }

    [[nodiscard]] platform::Subscription every(Duration, Task task) override {
        return std::make_shared<const Task>(std::move(task));
    }
    void after(Duration delay, Task task) override {
        delayed_.emplace(clock_ + delay, std::move(task));
    }
    void post(Task task) override { after(Duration::zero(), std::move(task)); }

    /// Sets both clocks, forward or back, and runs what was delayed until then at its own time.
    void setClock(platform::WallTime time) {
        while (!delayed_.empty() && delayed_.begin()->first <= time) {
            const auto next = delayed_.extract(delayed_.begin());
            clock_ = next.key();
            next.mapped()();
        }
        clock_ = time;
    }

private:
    platform::WallTime clock_;
    std::multimap<platform::WallTime, Task> delayed_;
};

}  // namespace tidewright
