#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

namespace tidewright::ui {

/// A text that wants to stand beside a mark on the chart, in pixels.
struct ChartLabel {
    QPointF mark;
    QSizeF size;
};

/// Where each label stands: beside, above or below its mark, inside `field`, clear of `taken` and
/// of every other; none where there is no room. Those first in `labels` choose first.
std::vector<std::optional<QRectF>> placeLabels(const std::vector<ChartLabel>& labels,
                                               const QRectF& field, std::vector<QRectF> taken);

}  // namespace tidewright::ui
