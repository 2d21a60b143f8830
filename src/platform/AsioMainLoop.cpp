#include "platform/AsioMainLoop.h"

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/signal_set.hpp>
#include <asio/steady_timer.hpp>
#include <csignal>
#include <optional>
#include <utility>

#include "platform/Check.h"

namespace tidewright::platform {

namespace {

/// Rings every period for as long as its Subscription lives.
class RepeatingTimer : public std::enable_shared_from_this<RepeatingTimer> {
public:
    /// Rings while `isHeld`, which must outlive this, is false.
    RepeatingTimer(asio::io_context& context, MainLoop::Duration period, MainLoop::Task task,
                   const bool& isHeld)
        : timer_(context, period), period_(period), task_(std::move(task)), isHeld_(isHeld) {}

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
        if (!isHeld_) task_();
    }

    asio::steady_timer timer_;
    MainLoop::Duration period_;
    MainLoop::Task task_;
    const bool& isHeld_;
};

bool isIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

struct AsioMainLoop::Core {
    asio::io_context context{1};
    asio::executor_work_guard<asio::io_context::executor_type> keepRunning{context.get_executor()};
    std::optional<asio::signal_set> interrupts;
    bool isHeld = false;
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
    auto timer =
        std::make_shared<RepeatingTimer>(core_->context, period, std::move(task), core_->isHeld);
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

void AsioMainLoop::hold() {
    core_->isHeld = true;
}

void AsioMainLoop::resume() {
    core_->isHeld = false;
}

void AsioMainLoop::onInterrupt(std::function<void(int signal)> task) {
    auto& interrupts = core_->interrupts.emplace(core_->context);
    for (const int signal : {SIGINT, SIGTERM})
        if (!isIgnored(signal)) interrupts.add(signal);
    interrupts.async_wait(
        [core = core_.get(), task = std::move(task)](const asio::error_code& error, int signal) {
            if (error) return;
            core->interrupts.reset();
            task(signal);
        });
}

void AsioMainLoop::run() {
    core_->context.restart();
    core_->context.run();
}

void AsioMainLoop::stop() {
    core_->context.stop();
}

}  // namespace tidewright::platform
