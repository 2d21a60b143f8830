#include "ui/LivePicture.h"

#include <QQuickWindow>

namespace tidewright::ui {

LivePicture::LivePicture(std::chrono::milliseconds pace, QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    setFlag(ItemObservesViewport);
    rest_.setSingleShot(true);
    rest_.setInterval(pace);
    connect(&rest_, &QTimer::timeout, this, &LivePicture::paintIfSeen);
}

void LivePicture::setEngine(EngineBridge* engine) {
    if (engine == engine_) return;
    engine_ = engine;
    changes_.reset();
    if (engine_) changes_ = engine_->boat().observe([this] { refresh(); });
    refreshNow();
    Q_EMIT engineChanged();
}

void LivePicture::refresh() {
    stale_ = true;
    paintIfSeen();
}

void LivePicture::refreshNow() {
    rest_.stop();
    refresh();
}

bool LivePicture::isInSight() const {
    return isVisible() && window() && window()->isExposed() && !clipRect().isEmpty();
}

void LivePicture::paintIfSeen() {
    if (!stale_ || rest_.isActive() || !isInSight()) return;
    stale_ = false;
    rest_.start();
    polish();
}

void LivePicture::updatePolish() {
    if (!engine_) return;
    description_ = look();
    update();
    Q_EMIT described();
}

void LivePicture::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemSceneChange) {
        disconnect(frames_);
        if (data.window)  // whatever brings it into sight makes a frame
            frames_ = connect(data.window, &QQuickWindow::afterAnimating, this,
                              &LivePicture::paintIfSeen);
    }
    QQuickPaintedItem::itemChange(change, data);
}

void LivePicture::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickPaintedItem::geometryChange(now, before);
    if (now.size() != before.size()) refreshNow();
}

}  // namespace tidewright::ui
