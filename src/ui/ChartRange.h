#pragma once

#include <QSizeF>

#include "ui/ChartScene.h"

namespace tidewright::ui {

// How much of the sea the chart shows, as metres per pixel.

inline constexpr double closestRange = 0.05;
inline constexpr double widestRange = 200;

/// What stands in the middle of the chart: the anchor when she lies to it, else the boat.
ChartPlace chartCentre(const ChartScene& scene);

/// The range at which a chart of `size` pixels shows the boat, the chain's circle when at anchor or
/// else the track, and of the nearest vessels those that are not too far away for that. In steps,
/// so that it stays the same for a while.
double automaticRange(const ChartScene& scene, QSizeF size);

/// `range` after `steps` of zooming in (above zero) or out, each of them twofold, within limits.
double zoomed(double range, double steps);

}  // namespace tidewright::ui
