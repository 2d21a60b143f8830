#pragma once

#include <memory>

namespace tidewright::platform {

/// Owns something that lasts: a repeating timer, a place among the observers. Letting go of it (or
/// calling reset()) ends that thing at once; an empty one owns nothing.
using Subscription = std::shared_ptr<const void>;

}  // namespace tidewright::platform
