#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace tidewright::simulation {

/// How much wind the sailing run gets.
enum class WindPreset { light, breeze, fresh, strong, custom };

inline constexpr std::array allWindPresets{WindPreset::light, WindPreset::breeze, WindPreset::fresh,
                                           WindPreset::strong, WindPreset::custom};

/// As in "breeze".
std::string_view rawValue(WindPreset preset);

/// The inverse of rawValue(); nothing for any other text.
std::optional<WindPreset> windPreset(std::string_view rawValue);

/// For the user, in French.
std::string_view label(WindPreset preset);

}  // namespace tidewright::simulation
