#pragma once

#include <chrono>
#include <cstdint>

namespace tidewright::soak {

/// Clients that come and go `perSecond` times a second for `span`, each in one of five ways: a
/// clean close, a reset, a half-close, silence for five seconds, a megabyte of rubbish. Returns how
/// many came, after the last has gone.
int churn(std::uint16_t port, int perSecond, std::chrono::seconds span);

}  // namespace tidewright::soak
