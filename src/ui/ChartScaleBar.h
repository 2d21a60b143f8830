#pragma once

#include <string>

namespace tidewright::ui {

/// The line that tells how long a distance is on the chart.
struct ChartScaleBar {
    double metres = 0;  ///< the distance that it stands for
    double pixels = 0;  ///< how long it is drawn
    std::string text;   ///< the distance, as in "200 m" or "0.5 NM"
};

/// The longest bar of a round distance that takes no more than `mostPixels`, at `metresPerPixel`.
ChartScaleBar scaleBar(double metresPerPixel, double mostPixels);

}  // namespace tidewright::ui
