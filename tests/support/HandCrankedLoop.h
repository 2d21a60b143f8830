#pragma once

#include <list>
#include <map>
#include <memory>
#include <utility>

#include "platform/MainLoop.h"

namespace tidewright {

/// A loop whose clocks stand where the test sets them and whose timers turn only by hand.
class HandCrankedLoop final : public platform::MainLoop {
public:
    platform::Instant now() const override { return platform::Instant(clock_.time_since_epoch()); }
    platform::WallTime wallClock() const override { return clock_; }

    [[nodiscard]] platform::Subscription every(Duration period, Task task) override {
        auto timer = std::make_shared<const Timer>(Timer{period, std::move(task)});
        timers_.push_back(timer);
        return timer;
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

    /// Rings the living timers of that period once.
    void turn(Duration period) {
        std::erase_if(timers_, [](const auto& timer) { return timer.expired(); });
        for (const auto& each : std::list(timers_))
            if (const auto timer = each.lock(); timer && timer->period == period) timer->task();
    }

private:
    struct Timer {
        Duration period;
        Task task;
    };

    platform::WallTime clock_;
    std::list<std::weak_ptr<const Timer>> timers_;
    std::multimap<platform::WallTime, Task> delayed_;
};

}  // namespace tidewright
