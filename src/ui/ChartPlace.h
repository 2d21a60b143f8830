#pragma once

namespace tidewright::ui {

/// A position of the boat, her anchor or a vessel.
struct ChartPlace {
    double latitude = 0;   ///< degrees, north positive
    double longitude = 0;  ///< degrees, east positive

    bool operator==(const ChartPlace&) const = default;
};

/// The way from one place to another, metres.
struct ChartOffset {
    double east = 0;
    double north = 0;

    double length() const;   ///< metres
    double bearing() const;  ///< degrees true, [0, 360)
};

/// Measured on a plane that touches the earth at `from`: meant for a few dozen miles.
ChartOffset offset(ChartPlace from, ChartPlace to);

}  // namespace tidewright::ui
