#pragma once

#include <memory>
#include <utility>

namespace tidewright::platform {

/// A member that lets callbacks outlive their owner harmlessly: what guard() returns does nothing
/// once the Lifetime is destroyed. Guarded callbacks must run on the thread that destroys the
/// owner.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// `action`, to be called with any arguments and for its effect alone.
    template <typename Action>
    auto guard(Action action) const {
        return [alive = std::weak_ptr<const bool>(alive_),
                action = std::move(action)](auto&&... arguments) {
            if (!alive.expired()) action(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace tidewright::platform
