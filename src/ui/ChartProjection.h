#pragma once

#include <QPointF>
#include <QSizeF>

#include "ui/ChartPlace.h"

namespace tidewright::ui {

/// Where places lie on a chart with north up, in pixels right of and below its top left corner.
class ChartProjection {
public:
    /// `centre` lies in the middle of a chart of `size` pixels; `metresPerPixel` is above zero.
    ChartProjection(ChartPlace centre, double metresPerPixel, QSizeF size)
        : centre_(centre), metresPerPixel_(metresPerPixel), size_(size) {}

    ChartPlace centre() const { return centre_; }
    double metresPerPixel() const { return metresPerPixel_; }
    QSizeF size() const { return size_; }

    QPointF at(ChartPlace place) const;

private:
    ChartPlace centre_;
    double metresPerPixel_;
    QSizeF size_;
};

}  // namespace tidewright::ui
