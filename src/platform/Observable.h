#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Subscription.h"

namespace tidewright::platform {

/// A long-lived object that tells whoever listens when one of its published properties is assigned.
/// For the main thread.
class Observable {
public:
    using Observer = std::function<void()>;

    Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    /// Calls `observer` after every assignment, equal values included, for as long as the returned
    /// handle is kept. Observers run in the order they came; they may come and go meanwhile.
    [[nodiscard]] Subscription observe(Observer observer) const;

    /// Tells the observers that something changed. For the object itself and its properties.
    void notify() const;

protected:
    ~Observable() = default;

private:
    mutable std::vector<std::weak_ptr<const Observer>> observers_;
};

/// One published property: read it by its name, assign to it, and its owner's observers are told.
template <typename Value>
class Published {
public:
    /// Runs after an assignment and before the observers are told; receives the previous value.
    using Hook = std::function<void(const Value& previous)>;

    /// `owner` must outlive the property, as the object does whose member it is.
    Published(const Observable& owner, Value initial, Hook hook = {})
        : owner_(owner), value_(std::move(initial)), hook_(std::move(hook)) {}

    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    Published& operator=(Value value) {
        const Value previous = std::exchange(value_, std::move(value));
        if (hook_) hook_(previous);
        owner_.notify();
        return *this;
    }

    const Value& get() const { return value_; }
    operator const Value&() const { return value_; }
    const Value* operator->() const { return &value_; }

    template <typename Other>
    friend bool operator==(const Published& property, const Other& other) {
        return property.value_ == other;
    }

private:
    const Observable& owner_;
    Value value_;
    Hook hook_;
};

}  // namespace tidewright::platform
