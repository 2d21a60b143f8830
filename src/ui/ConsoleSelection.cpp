#include "ui/ConsoleSelection.h"

#include <algorithm>

namespace tidewright::ui {

void ConsoleSelection::keepWithin(double oldest, double newest) {
    if (isEmpty()) return;
    if (newest == 0 || last() < oldest) return clear();
    set(std::max(anchor_, oldest), std::max(head_, oldest));
}

void ConsoleSelection::set(double anchor, double head) {
    if (anchor == anchor_ && head == head_) return;
    anchor_ = anchor;
    head_ = head;
    Q_EMIT changed();
}

}  // namespace tidewright::ui
