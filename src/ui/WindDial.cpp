#include "ui/WindDial.h"

#include <fmt/format.h>

#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "simulation/Angles.h"
#include "ui/InstrumentTexts.h"
#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

constexpr double rim = 100;  // the drawing's own unit: a hundredth of the dial's radius
constexpr double closeHauledFrom = 20;
constexpr double closeHauledTo = 60;
constexpr double calm = 0.05;  // knots, shown as 0.0: from nowhere

bool covers(const DialWind& wind, int angle) {
    return wind.speed >= calm && std::abs(simulation::wrap180(angle - wind.angle)) < 12;
}

/// The arc of the rim from `from` to `to` degrees off the bow.
void paintArc(QPainter& painter, double from, double to, double radius) {
    const double sixteenths = 16;  // of a degree, counterclockwise from three o'clock
    painter.drawArc(QRectF(-radius, -radius, 2 * radius, 2 * radius),
                    static_cast<int>(sixteenths * (90 - from)),
                    static_cast<int>(sixteenths * (from - to)));
}

void paintRim(QPainter& painter, const DialLook& look) {
    painter.setPen(QPen(look.line, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QPointF(), rim - 2, rim - 2);
    painter.setPen(QPen(look.starboard, 5, Qt::SolidLine, Qt::FlatCap));
    paintArc(painter, closeHauledFrom, closeHauledTo, rim - 3.5);
    painter.setPen(QPen(look.port, 5, Qt::SolidLine, Qt::FlatCap));
    paintArc(painter, -closeHauledTo, -closeHauledFrom, rim - 3.5);
    for (int angle = 0; angle < 360; angle += 10) {
        const bool major = angle % 30 == 0;
        painter.setPen(QPen(major ? look.muted : look.line, major ? 2 : 1.5));
        painter.drawLine(onRose(angle, rim - (major ? 14 : 10)), onRose(angle, rim - 6));
    }
}

/// The degrees off the bow, but those that a hand would cover.
void paintDegrees(QPainter& painter, const DialReading& reading, const DialLook& look,
                  double scale) {
    const double textSize = std::max(look.textSize / scale, 11.0);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(std::lround(textSize)));
    painter.setFont(font);
    painter.setPen(look.muted);
    for (const int angle : {-150, -120, -90, -60, -30, 0, 30, 60, 90, 120, 150, 180}) {
        if (covers(reading.apparent, angle) || covers(reading.real, angle)) continue;
        const QPointF at = onRose(angle, rim - 16 - 0.75 * textSize);
        painter.drawText(QRectF(at - QPointF(20, 10), QSizeF(40, 20)), Qt::AlignCenter,
                         QString::number(std::abs(angle)));
    }
}

void paintHull(QPainter& painter, const DialLook& look) {
    QPainterPath hull(QPointF(0, -62));
    hull.cubicTo(28, -36, 50, -4, 36, 48);
    hull.lineTo(-36, 48);
    hull.cubicTo(-50, -4, -28, -36, 0, -62);
    painter.setPen(QPen(look.line, 2, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(hull);
}

/// A hand from the rim inwards, as the wind blows.
void paintHand(QPainter& painter, const DialWind& wind, double halfWidth, double length,
               const QColor& colour, const QColor& edge) {
    if (wind.speed < calm) return;
    painter.save();
    painter.rotate(wind.angle);
    painter.setPen(QPen(edge, 1.5, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF{{{-halfWidth, -rim}, {halfWidth, -rim}, {0, length - rim}}});
    painter.restore();
}

void paintDigits(QPainter& painter, double speed, const DialLook& look) {
    QFont font(look.digits);
    font.setPixelSize(29);
    font.setWeight(QFont::Medium);
    painter.setFont(font);
    painter.setPen(look.ink);
    painter.drawText(QRectF(-60, -20, 120, 36), Qt::AlignCenter,
                     toQt(fmt::format("{:.1f}", speed)));
    font.setPixelSize(16);
    painter.setFont(font);
    painter.setPen(look.muted);
    painter.drawText(QRectF(-40, 15, 80, 20), Qt::AlignCenter, QStringLiteral("nd"));
}

}  // namespace

QPointF onRose(double angle, double radius) {
    const double direction = simulation::radians(angle);
    return {radius * std::sin(direction), -radius * std::cos(direction)};
}

std::string windText(const DialWind& wind) {
    return fmt::format("{:.1f} nd · {}° {}", wind.speed, std::labs(std::lround(wind.angle)),
                       sideOf(wind.angle));
}

void paintDial(QPainter& painter, const DialReading& reading, const QRectF& field,
               const DialLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(field.center());
    const double scale = std::min(field.width(), field.height()) / (2 * rim);
    painter.scale(scale, scale);
    paintRim(painter, look);
    paintDegrees(painter, reading, look, scale);
    paintHull(painter, look);
    paintHand(painter, reading.real, 14, 27, look.real, look.water);
    paintHand(painter, reading.apparent, 8, 48, look.apparent, look.water);
    paintDigits(painter, reading.apparent.speed, look);
    painter.restore();
}

}  // namespace tidewright::ui
