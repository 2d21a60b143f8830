#pragma once

#include <QColor>
#include <QRectF>
#include <optional>

#include "ui/ChartPainter.h"
#include "ui/ChartProjection.h"
#include "ui/ChartScene.h"
#include "ui/LivePicture.h"
#include "ui/SimulatorBridge.h"

namespace tidewright::ui {

/// The chart as an item, repainted once a second at most. Its range follows what there is to see
/// until the user zooms. Turning the wheel with the control key held zooms; without it the wheel is
/// left to whoever scrolls.
class ChartPicture : public tidewright::ui::LivePicture {  // in full, for the linter
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(tidewright::ui::SimulatorBridge* simulator MEMBER simulator_ REQUIRED)
    Q_PROPERTY(bool automatic READ automatic NOTIFY automaticChanged)
    Q_PROPERTY(QColor water MEMBER water_)
    Q_PROPERTY(QColor line MEMBER line_)
    Q_PROPERTY(QColor ink MEMBER ink_)
    Q_PROPERTY(QColor muted MEMBER muted_)
    Q_PROPERTY(QColor boat MEMBER boat_)
    Q_PROPERTY(QColor vessel MEMBER vessel_)
    Q_PROPERTY(QColor anchor MEMBER anchor_)
    Q_PROPERTY(int textSize MEMBER textSize_)
    Q_PROPERTY(QRectF covered MEMBER covered_)

public:
    explicit ChartPicture(QQuickItem* parent = nullptr);

    bool automatic() const { return !chosenRange_; }  ///< the user has not zoomed

    /// Zooms in by `steps`, each of them twofold; out when below zero.
    Q_INVOKABLE void zoom(double steps);

    /// Shows again what there is to see.
    Q_INVOKABLE void fit();

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void automaticChanged();

protected:
    QString look() override;
    void wheelEvent(QWheelEvent* event) override;

private:
    double range() const;
    void chooseRange(std::optional<double> range);

    SimulatorBridge* simulator_ = nullptr;
    QColor water_;
    QColor line_;
    QColor ink_;
    QColor muted_;
    QColor boat_;
    QColor vessel_;
    QColor anchor_;
    int textSize_ = 0;
    QRectF covered_;
    ChartScene scene_;
    std::optional<double> chosenRange_;  // metres per pixel
};

}  // namespace tidewright::ui
