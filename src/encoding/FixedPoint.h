#pragma once

#include <string>

namespace tidewright::encoding {

/// `value` with `decimals` (>= 0) digits after the point, rounded as printf rounds it: exactly, and
/// to the even digit where two are as near. "-0.0" for what is rounded to zero from below. Whatever
/// the locale.
std::string fixedPoint(double value, int decimals);

}  // namespace tidewright::encoding
