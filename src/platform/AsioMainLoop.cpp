#include "platform/AsioMainLoop.h"

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>
#include <utility>

#include "platform/Check.h"

namespace tidewright::platform {

namespace {

/// Rings every period for as long as its Subscription lives.
class RepeatingTimer : public std::enable_shared_from_this<RepeatingTimer> {
public:
    RepeatingTimer(asio::io_context& context, MainLoop::Duration period, MainLoop::Task task)
        : timer_(context, period), period_(period), task_(std::move(task)) {}

    void wait() {
        timer_.async_wait([weak = weak_from_this()](const asio::error_code& error) {
            if (const auto self = weak.lock(); self && !error) self->ring();
        });
    }

private:
    void ring() {
        const auto due = timer_.expiry();
        const auto missed = (std::chrono::steady_clock::now() - due) / period_;
        timer_.expires_at(due + (missed + 1) * period_);
        wait();
        task_();
    }

    asio::steady_timer timer_;
    MainLoop::Duration period_;
    MainLoop::Task task_;
};

}  // namespace

struct AsioMainLoop::Core {
    asio::io_context context{1};
    asio::executor_work_guard<asio::io_context::executor_type> keepRunning{context.get_executor()};
};

AsioMainLoop::AsioMainLoop() : core_(std::make_unique<Core>()) {}

AsioMainLoop::~AsioMainLoop() = default;

Instant AsioMainLoop::now() const {
    return std::chrono::steady_clock::now();
}

WallTime AsioMainLoop::wallClock() const {
    return std::chrono::system_clock::now();
}

Subscription AsioMainLoop::every(Duration period, Task task) {
    check(period > Duration::zero(), "a timer's period must be above zero");
    auto timer = std::make_shared<RepeatingTimer>(core_->context, period, std::move(task));
    timer->wait();
    return timer;
}

void AsioMainLoop::after(Duration delay, Task task) {
    check(delay >= Duration::zero(), "a delay must not be negative");
    const auto timer = std::make_shared<asio::steady_timer>(core_->context, delay);
    timer->async_wait([timer, task = std::move(task)](const asio::error_code&) { task(); });
}

void AsioMainLoop::post(Task task) {
    asio::post(core_->context, std::move(task));
}

void AsioMainLoop::run() {
    core_->context.restart();
    core_->context.run();
}

void AsioMainLoop::stop() {
    core_->context.stop();
}

}  // namespace tidewright::platform
