#pragma once

#include <string>

namespace tidewright::simulation {

/// A time left, in seconds, as minutes and seconds: 125.4 gives "2:05", anything negative "0:00".
std::string clock(double seconds);

}  // namespace tidewright::simulation
