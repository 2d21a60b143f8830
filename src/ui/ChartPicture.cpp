#include "ui/ChartPicture.h"

#include <QWheelEvent>

#include "ui/ChartRange.h"
#include "ui/ChartText.h"
#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

constexpr double wheelPerStep = 240;  // two notches of a usual wheel

}  // namespace

ChartPicture::ChartPicture(QQuickItem* parent) : LivePicture(std::chrono::seconds(1), parent) {}

void ChartPicture::zoom(double steps) {
    chooseRange(zoomed(range(), steps));
}

void ChartPicture::fit() {
    chooseRange(std::nullopt);
}

void ChartPicture::paint(QPainter* painter) {
    paintChart(*painter, scene_, {chartCentre(scene_), range(), size()},
               {.water = water_,
                .line = line_,
                .ink = ink_,
                .muted = muted_,
                .boat = boat_,
                .vessel = vessel_,
                .anchor = anchor_,
                .textSize = textSize_,
                .covered = covered_});
}

QString ChartPicture::look() {
    if (simulator_) scene_ = ChartScene(engine()->boat(), simulator_->track());
    return toQt(describe(scene_, width() * range()));
}

void ChartPicture::wheelEvent(QWheelEvent* event) {
    event->setAccepted(event->modifiers().testFlag(Qt::ControlModifier));
    if (event->isAccepted()) zoom(event->angleDelta().y() / wheelPerStep);
}

double ChartPicture::range() const {
    return chosenRange_.value_or(automaticRange(scene_, size()));
}

void ChartPicture::chooseRange(std::optional<double> range) {
    chosenRange_ = range;
    Q_EMIT automaticChanged();
    refreshNow();
}

}  // namespace tidewright::ui
