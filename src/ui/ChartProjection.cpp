#include "ui/ChartProjection.h"

namespace tidewright::ui {

QPointF ChartProjection::at(ChartPlace place) const {
    const ChartOffset way = offset(centre_, place);
    return {size_.width() / 2 + way.east / metresPerPixel_,
            size_.height() / 2 - way.north / metresPerPixel_};
}

}  // namespace tidewright::ui
