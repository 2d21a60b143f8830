#include "platform/Observable.h"

namespace tidewright::platform {

Subscription Observable::observe(Observer observer) const {
    auto kept = std::make_shared<const Observer>(std::move(observer));
    observers_.push_back(kept);
    return kept;
}

void Observable::notify() const {
    if (observers_.empty()) return;
    std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
    for (const auto& candidate : std::vector(observers_))
        if (const auto observer = candidate.lock()) (*observer)();
}

}  // namespace tidewright::platform
