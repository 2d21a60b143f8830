#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tidewright::simulation {

/// Who steers: the sailing programme, the user's sliders, or the anchor.
enum class ControlMode { auto_, manual, anchor };

inline constexpr std::array allControlModes{ControlMode::auto_, ControlMode::manual,
                                            ControlMode::anchor};

/// "auto", "manual" or "anchor".
std::string_view rawValue(ControlMode mode);

/// The inverse of rawValue(); nothing for any other text.
std::optional<ControlMode> controlMode(std::string_view rawValue);

/// For the user, in French.
std::string_view label(ControlMode mode);

}  // namespace tidewright::simulation
