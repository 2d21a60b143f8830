#include "ui/ChartPainter.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPolygonF>
#include <array>
#include <cmath>
#include <vector>

#include "simulation/EarthModel.h"
#include "ui/ChartLabels.h"
#include "ui/ChartScaleBar.h"
#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

constexpr double inset = 12;           // from the chart's edge to north and scale bar, pixels
constexpr double lineSpacing = 56;     // least between meridians or parallels, pixels
constexpr double mostScaleBar = 96;    // pixels
constexpr double vectorMinutes = 6;    // a vessel's run that its line shows
constexpr double mostVector = 28;      // pixels
constexpr double edge = 7;             // from the chart's edge to the marks on it, pixels
constexpr std::size_t mostNames = 12;  // more vessels in sight than this stay without names
constexpr std::size_t mostEdgeMarks = 8;

const QPolygonF boatShape{
    {{0, -13}, {4.5, -4}, {5, 4}, {3.5, 10}, {-3.5, 10}, {-5, 4}, {-4.5, -4}}};
const QPolygonF vesselShape{{{0, -7}, {4.5, 6}, {-4.5, 6}}};
const QPolygonF edgeShape{{{0, -4.5}, {4, 3}, {-4, 3}}};

class Drawing {
public:
    Drawing(QPainter& painter, const ChartScene& scene, const ChartProjection& projection,
            const ChartLook& look)
        : painter_(painter),
          scene_(scene),
          projection_(projection),
          look_(look),
          field_({0, 0}, projection.size()) {}

    void paint() {
        painter_.setRenderHint(QPainter::Antialiasing);
        QFont font = painter_.font();
        font.setPixelSize(look_.textSize);
        painter_.setFont(font);
        paintGraticule();
        if (scene_.anchorage) paintAnchorage(*scene_.anchorage);
        paintTrack();
        paintVessels();
        paintBoat();
        paintNorth();
        paintScaleBar();
    }

private:
    void paintGraticule();
    void paintAnchorage(const ChartAnchorage& anchorage);
    void paintAnchor(QPointF at);
    void paintTrack();
    void paintVessels();
    void paintNames(const std::vector<const ChartVessel*>& inSight);
    void paintVessel(const ChartVessel& vessel);
    void paintEdgeMark(const ChartVessel& vessel);
    void paintBoat();
    void paintNorth();
    void paintScaleBar();

    void paintShape(const QPolygonF& shape, QPointF at, double degrees);
    QPointF vectorOf(double course, double speed) const;
    double pixels(double metres) const { return metres / projection_.metresPerPixel(); }
    QRectF northArea() const { return {inset - 4, inset - 4, 24, 36}; }
    QRectF scaleBarArea() const {
        return {0, field_.height() - inset - 24, inset + mostScaleBar + 8, inset + 24};
    }

    QPainter& painter_;
    const ChartScene& scene_;
    const ChartProjection& projection_;
    const ChartLook& look_;
    QRectF field_;
};

QColor faded(QColor colour, double share) {
    colour.setAlphaF(static_cast<float>(share));
    return colour;
}

/// The finest spacing of round minutes of arc that takes no less than lineSpacing, in degrees.
double spacingInDegrees(double pixelsPerDegree) {
    const double least = lineSpacing / pixelsPerDegree * 60;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double digit : {1, 2, 5})
        if (digit * power >= least) return digit * power / 60;
    return power / 6;
}

void Drawing::paintGraticule() {
    painter_.setPen(QPen(faded(look_.line, 0.55), 1));
    const ChartPlace centre = projection_.centre();
    const QPointF middle = field_.center();
    const auto [east, north] = offset(centre, {centre.latitude + 1, centre.longitude + 1});
    const auto lines = [](double value, double perDegree, double half, const auto& draw) {
        if (!(perDegree > 0)) return;
        const double spacing = spacingInDegrees(perDegree);
        const double reach = half / perDegree;
        for (double each = std::ceil((value - reach) / spacing) * spacing; each <= value + reach;
             each += spacing)
            draw((each - value) * perDegree);
    };
    lines(centre.longitude, pixels(east), middle.x(), [&](double right) {
        const double x = std::floor(middle.x() + right) + 0.5;
        painter_.drawLine(QPointF(x, 0), QPointF(x, field_.height()));
    });
    lines(centre.latitude, pixels(north), middle.y(), [&](double up) {
        const double y = std::floor(middle.y() - up) + 0.5;
        painter_.drawLine(QPointF(0, y), QPointF(field_.width(), y));
    });
}

void Drawing::paintAnchorage(const ChartAnchorage& anchorage) {
    const QPointF anchor = projection_.at(anchorage.anchor);
    const double swing = pixels(anchorage.swingRadius);
    const double chain = pixels(anchorage.chainOut);
    painter_.setPen(QPen(look_.anchor, 1.5));
    painter_.setBrush(faded(look_.anchor, 0.08));
    painter_.drawEllipse(anchor, swing, swing);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(faded(look_.anchor, 0.5), 1, Qt::DashLine));
    painter_.drawEllipse(anchor, chain, chain);
    painter_.drawLine(anchor, projection_.at(scene_.boat));
    paintAnchor(anchor);
}

/// Ring, stock, shank and arms, the shank's middle at `at`.
void Drawing::paintAnchor(QPointF at) {
    QPainterPath path;
    path.addEllipse(QPointF(0, -7), 2, 2);
    path.moveTo(-4, -3.5);
    path.lineTo(4, -3.5);
    path.moveTo(0, -5);
    path.lineTo(0, 8);
    path.moveTo(-6.5, 3);
    path.quadTo(-5.5, 8, 0, 8);
    path.quadTo(5.5, 8, 6.5, 3);
    painter_.setPen(QPen(look_.anchor, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter_.drawPath(path.translated(at));
}

void Drawing::paintTrack() {
    QPolygonF line;
    for (const ChartPlace& each : scene_.track) {
        const QPointF next = projection_.at(each);
        if (line.isEmpty() || (next - line.last()).manhattanLength() >= 1) line.append(next);
    }
    line.append(projection_.at(scene_.boat));
    painter_.setPen(QPen(faded(look_.boat, 0.6), 1.5, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter_.drawPolyline(line);
}

void Drawing::paintVessels() {
    std::vector<const ChartVessel*> inSight;
    std::size_t edgeMarks = 0;
    for (const ChartVessel& each : scene_.vessels) {
        if (field_.contains(projection_.at(each.place)))
            inSight.push_back(&each);
        else if (edgeMarks++ < mostEdgeMarks)
            paintEdgeMark(each);
    }
    for (const ChartVessel* each : inSight) paintVessel(*each);
    if (inSight.size() <= mostNames) paintNames(inSight);
}

void Drawing::paintVessel(const ChartVessel& vessel) {
    const QPointF at = projection_.at(vessel.place);
    painter_.setPen(QPen(look_.vessel, 1));
    painter_.drawLine(at, at + vectorOf(vessel.course, vessel.speed));
    painter_.setPen(QPen(look_.vessel, 1.25));
    painter_.setBrush(look_.vessel);
    paintShape(vesselShape, at, vessel.course);
}

/// A vessel beyond the chart, as a mark on its edge in her direction.
void Drawing::paintEdgeMark(const ChartVessel& vessel) {
    const QPointF middle = field_.center();
    const QPointF way = projection_.at(vessel.place) - middle;
    const double across = std::abs(way.x()) / std::max(middle.x() - edge, 1.0);
    const double down = std::abs(way.y()) / std::max(middle.y() - edge, 1.0);
    const QPointF at = middle + way / std::max(across, down);
    for (const QRectF& taken : {look_.covered, northArea(), scaleBarArea()})
        if (taken.adjusted(-inset, -inset, inset, inset).contains(at)) return;
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(faded(look_.vessel, 0.55));
    paintShape(edgeShape, at, offset(projection_.centre(), vessel.place).bearing());
}

void Drawing::paintNames(const std::vector<const ChartVessel*>& inSight) {
    const QFontMetricsF metrics(painter_.font());
    std::vector<QRectF> taken{look_.covered, northArea(), scaleBarArea()};
    const auto take = [&](QPointF at, double half, QPointF vector) {
        taken.emplace_back(at - QPointF(half, half), QSizeF(2 * half, 2 * half));
        taken.push_back(QRectF(at, at + vector).normalized().adjusted(-1, -1, 1, 1));
    };
    take(projection_.at(scene_.boat), 14, vectorOf(scene_.course, scene_.speed));
    if (scene_.anchorage) take(projection_.at(scene_.anchorage->anchor), 9, {});
    std::vector<ChartLabel> labels;
    for (const ChartVessel* each : inSight) {
        const QPointF at = projection_.at(each->place);
        take(at, 7, vectorOf(each->course, each->speed));
        labels.push_back({.mark = at, .size = metrics.size(Qt::TextSingleLine, toQt(each->name))});
    }
    const auto places = placeLabels(labels, field_.adjusted(4, 4, -4, -4), std::move(taken));
    painter_.setPen(look_.muted);
    for (std::size_t i = 0; i < inSight.size(); ++i)
        if (places[i]) painter_.drawText(*places[i], Qt::AlignCenter, toQt(inSight[i]->name));
}

void Drawing::paintBoat() {
    const QPointF at = projection_.at(scene_.boat);
    painter_.setPen(QPen(look_.boat, 1));
    painter_.drawLine(at, at + vectorOf(scene_.course, scene_.speed));
    painter_.setPen(QPen(look_.water, 1.5, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter_.setBrush(look_.boat);
    paintShape(boatShape, at, scene_.heading);
}

void Drawing::paintNorth() {
    const QPointF top(inset + 8, inset);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(look_.ink);
    painter_.drawPolygon(QPolygonF{{top, top + QPointF(5, 13), top + QPointF(0, 10)}});
    painter_.setBrush(faded(look_.ink, 0.45));
    painter_.drawPolygon(QPolygonF{{top, top + QPointF(-5, 13), top + QPointF(0, 10)}});
    painter_.setPen(look_.ink);
    painter_.drawText(QRectF(top + QPointF(-8, 13), QSizeF(16, 16)), Qt::AlignCenter,
                      QStringLiteral("N"));
}

void Drawing::paintScaleBar() {
    const ChartScaleBar bar = scaleBar(projection_.metresPerPixel(), mostScaleBar);
    const double bottom = std::floor(field_.height() - inset) + 0.5;
    const QPointF left(inset, bottom);
    const QPointF right(inset + bar.pixels, bottom);
    painter_.fillRect(scaleBarArea(), faded(look_.water, 0.75));
    painter_.setPen(QPen(look_.ink, 1));
    painter_.drawPolyline(QPolygonF{{left - QPointF(0, 5), left, right, right - QPointF(0, 5)}});
    painter_.drawText(QRectF(left.x(), bottom - 21, mostScaleBar, 16),
                      Qt::AlignLeft | Qt::AlignVCenter, toQt(bar.text));
}

void Drawing::paintShape(const QPolygonF& shape, QPointF at, double degrees) {
    painter_.save();
    painter_.translate(at);
    painter_.rotate(degrees);
    painter_.drawPolygon(shape);
    painter_.restore();
}

/// The way that somebody makes in vectorMinutes, cut short where it is long.
QPointF Drawing::vectorOf(double course, double speed) const {
    const double run = speed * simulation::metresPerNauticalMile * vectorMinutes / 60;
    const double length = std::min(pixels(run), mostVector);
    const double direction = simulation::radians(course);
    return length * QPointF(std::sin(direction), -std::cos(direction));
}

}  // namespace

void paintChart(QPainter& painter, const ChartScene& scene, const ChartProjection& projection,
                const ChartLook& look) {
    painter.save();
    painter.setClipRect(QRectF({0, 0}, projection.size()));
    Drawing(painter, scene, projection, look).paint();
    painter.restore();
}

}  // namespace tidewright::ui
