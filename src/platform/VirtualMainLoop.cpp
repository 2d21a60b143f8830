#include "platform/VirtualMainLoop.h"

#include <algorithm>

#include "platform/Check.h"

namespace tidewright::platform {

Subscription VirtualMainLoop::every(Duration period, Task task) {
    check(period > Duration::zero(), "a timer's period must be above zero");
    auto alarm = std::make_shared<const Alarm>(Alarm{period, std::move(task)});
    repeating_.emplace(Turn{now_ + period, asked_++}, alarm);
    return alarm;
}

void VirtualMainLoop::after(Duration delay, Task task) {
    check(delay >= Duration::zero(), "a delay must not be negative");
    once_.emplace(Turn{now_ + delay, asked_++}, std::move(task));
}

void VirtualMainLoop::firstAfter(Duration delay, Task task) {
    check(delay >= Duration::zero(), "a delay must not be negative");
    once_.emplace(Turn{now_ + delay, askedToBeFirst_++}, std::move(task));
}

void VirtualMainLoop::post(Task task) {
    after(Duration::zero(), std::move(task));
}

std::optional<Instant> VirtualMainLoop::nextDue() const {
    if (repeating_.empty() && once_.empty()) return std::nullopt;
    if (once_.empty()) return repeating_.begin()->first.first;
    if (repeating_.empty()) return once_.begin()->first.first;
    return std::min(repeating_.begin()->first, once_.begin()->first).first;
}

void VirtualMainLoop::advance(Duration span) {
    const Instant end = now_ + span;
    const auto due = [end](const auto& turns) {
        return !turns.empty() && turns.begin()->first.first <= end;
    };
    while (due(repeating_) || due(once_)) {
        const bool repeats =
            due(repeating_) && (once_.empty() || repeating_.begin()->first < once_.begin()->first);
        if (repeats) {
            const auto next = repeating_.extract(repeating_.begin());
            if (const auto alarm = next.mapped().lock()) ring(next.key(), alarm);
        } else {
            const auto next = once_.extract(once_.begin());
            now_ = std::max(now_, next.key().first);
            next.mapped()();
        }
    }
    now_ = std::max(now_, end);
}

void VirtualMainLoop::ring(Turn turn, const std::shared_ptr<const Alarm>& alarm) {
    const auto [due, order] = turn;
    now_ = std::max(now_, due);
    const auto missed = (now_ - due) / alarm->period;
    repeating_.emplace(Turn{due + (missed + 1) * alarm->period, order}, alarm);
    alarm->task();
}

}  // namespace tidewright::platform
