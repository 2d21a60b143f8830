#include "ui/QtMainLoop.h"

#include <QMetaObject>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/Check.h"

namespace tidewright::ui {

namespace {

using platform::Instant;
using platform::MainLoop;

/// Rings every period for as long as its Subscription lives.
class RepeatingTimer : public std::enable_shared_from_this<RepeatingTimer> {
public:
    RepeatingTimer(MainLoop& loop, MainLoop::Duration period, MainLoop::Task task)
        : loop_(loop), period_(period), due_(loop.now() + period), task_(std::move(task)) {}

    void await() {
        const auto left = std::max(due_ - loop_.now(), MainLoop::Duration::zero());
        loop_.after(left, [weak = weak_from_this()] {
            if (const auto self = weak.lock()) self->ring();
        });
    }

private:
    void ring() {
        const auto missed = (loop_.now() - due_) / period_;
        due_ += (missed + 1) * period_;
        await();
        task_();
    }

    MainLoop& loop_;
    MainLoop::Duration period_;
    Instant due_;
    MainLoop::Task task_;
};

}  // namespace

Instant QtMainLoop::now() const {
    return std::chrono::steady_clock::now();
}

platform::WallTime QtMainLoop::wallClock() const {
    return std::chrono::system_clock::now();
}

platform::Subscription QtMainLoop::every(Duration period, Task task) {
    platform::check(period > Duration::zero(), "a timer's period must be above zero");
    const auto timer = std::make_shared<RepeatingTimer>(*this, period, std::move(task));
    timer->await();
    return timer;
}

void QtMainLoop::after(Duration delay, Task task) {
    platform::check(delay >= Duration::zero(), "a delay must not be negative");
    // Qt counts in milliseconds: rounded up, so that nothing runs before its time.
    QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(delay), Qt::PreciseTimer,
                       &mainThread_, std::move(task));
}

void QtMainLoop::post(Task task) {
    QMetaObject::invokeMethod(&mainThread_, std::move(task), Qt::QueuedConnection);
}

}  // namespace tidewright::ui
