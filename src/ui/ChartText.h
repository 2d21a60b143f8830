#pragma once

#include <string>

#include "ui/ChartScene.h"

namespace tidewright::ui {

/// What the chart shows, in French, for who cannot see it. `width` is how much sea it shows from
/// its left edge to its right one, metres.
std::string describe(const ChartScene& scene, double width);

}  // namespace tidewright::ui
