#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <string>

#include "simulation/BoatState.h"

namespace tidewright::ui {

/// A wind as felt on board.
struct DialWind {
    double angle = 0;  ///< degrees off the bow, [-180, 180], positive to starboard
    double speed = 0;  ///< knots

    bool operator==(const DialWind&) const = default;
};

/// What the wind dial shows.
struct DialReading {
    DialWind apparent;
    DialWind real;  ///< the true wind

    DialReading() = default;
    explicit DialReading(const simulation::BoatState& state)
        : apparent{state.apparentWindAngle, state.apparentWindSpeed},
          real{state.trueWindAngle, state.trueWindSpeed} {}
};

/// How the dial is drawn.
struct DialLook {
    QColor water;      ///< what lies behind
    QColor line;       ///< the rim and the hull
    QColor ink;        ///< the digits
    QColor muted;      ///< unit and degrees
    QColor apparent;   ///< the hand of the apparent wind
    QColor real;       ///< the hand of the true wind
    QColor starboard;  ///< where the sheets are hard in, to starboard
    QColor port;       ///< the same to port
    QString digits;    ///< the typeface of the digits
    int textSize = 0;  ///< of the degrees, pixels
};

/// Where `angle` degrees off the bow, positive to starboard, lies on a circle of `radius` pixels
/// around (0, 0) with the bow up.
QPointF onRose(double angle, double radius);

/// A wind as text: its speed, its angle and its side, as in "15.0 nd · 40° tribord".
std::string windText(const DialWind& wind);

/// Draws `reading` as large as fits in the middle of `field`.
void paintDial(QPainter& painter, const DialReading& reading, const QRectF& field,
               const DialLook& look);

}  // namespace tidewright::ui
