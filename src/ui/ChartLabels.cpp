#include "ui/ChartLabels.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tidewright::ui {

namespace {

constexpr double gap = 10;  // from the middle of the mark to the text, pixels

std::array<QRectF, 4> placesAround(const ChartLabel& label) {
    const auto [width, height] = std::pair(label.size.width(), label.size.height());
    const auto place = [&](double right, double down) {
        return QRectF(label.mark + QPointF(right, down), label.size);
    };
    return {place(gap, -height / 2), place(-gap - width, -height / 2), place(-width / 2, gap),
            place(-width / 2, -gap - height)};
}

}  // namespace

std::vector<std::optional<QRectF>> placeLabels(const std::vector<ChartLabel>& labels,
                                               const QRectF& field, std::vector<QRectF> taken) {
    std::vector<std::optional<QRectF>> placed;
    placed.reserve(labels.size());
    const auto isFree = [&](const QRectF& place) {
        return field.contains(place) && std::ranges::none_of(taken, [&](const QRectF& each) {
                   return each.intersects(place);
               });
    };
    for (const ChartLabel& each : labels) {
        const auto places = placesAround(each);
        const auto found = std::ranges::find_if(places, isFree);
        placed.push_back(found == places.end() ? std::nullopt : std::optional(*found));
        if (placed.back()) taken.push_back(*placed.back());
    }
    return placed;
}

}  // namespace tidewright::ui
