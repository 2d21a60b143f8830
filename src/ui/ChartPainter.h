#pragma once

#include <QColor>
#include <QPainter>
#include <QRectF>

#include "ui/ChartProjection.h"
#include "ui/ChartScene.h"

namespace tidewright::ui {

/// How the chart is drawn.
struct ChartLook {
    QColor water;  ///< what lies behind
    QColor line;   ///< meridians and parallels
    QColor ink;    ///< scale bar and north
    QColor muted;  ///< names of vessels
    QColor boat;   ///< and her track
    QColor vessel;
    QColor anchor;     ///< and the circles around it
    int textSize = 0;  ///< pixels
    QRectF covered;    ///< where controls lie over the chart, pixels
};

/// Draws `scene` through `projection` and nothing outside its size.
void paintChart(QPainter& painter, const ChartScene& scene, const ChartProjection& projection,
                const ChartLook& look);

}  // namespace tidewright::ui
