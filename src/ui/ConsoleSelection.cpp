#include "ui/ConsoleSelection.h"

#include <algorithm>

namespace tidewright::ui {

void ConsoleSelection::extendTo(double number, int column) {
    const Place head{number, column};
    set(anchor_.line == 0 ? head : anchor_, head);
}

void ConsoleSelection::keepWithin(double oldest, double newest) {
    if (anchor_.line == 0) return;
    if (newest == 0 || std::max(anchor_, head_).line < oldest) return clear();
    const Place front{oldest, 0};
    set(std::max(anchor_, front), std::max(head_, front));
}

void ConsoleSelection::set(Place anchor, Place head) {
    if (anchor == anchor_ && head == head_) return;
    anchor_ = anchor;
    head_ = head;
    Q_EMIT changed();
}

}  // namespace tidewright::ui
