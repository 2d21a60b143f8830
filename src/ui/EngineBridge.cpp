#include "ui/EngineBridge.h"

#include <fmt/format.h>

#include <utility>

#include "ui/Texts.h"

namespace tidewright::ui {

namespace {

std::string captionOf(const simulation::WindRange& winds) {
    return fmt::format(
        "Zones de vent de {:.0f}–{:.0f} nœuds, qui changent toutes les 5 à 10 minutes.", winds.low,
        winds.high);
}

}  // namespace

EngineBridge::EngineBridge(simulation::BoatSimulationEngine& engine)
    : engine_(engine),
      instruments_(engine.state),
      shown_(current()),
      changes_(engine.observe([this] { update(); })) {}

EngineBridge::Shown EngineBridge::current() const {
    return {.autoStatus = toQt(engine_.autoStatus.get()),
            .windCaption = toQt(captionOf(engine_.environment->windRange()))};
}

void EngineBridge::update() {
    const Shown before = std::exchange(shown_, current());
    if (before.autoStatus != shown_.autoStatus) Q_EMIT autoStatusChanged();
    if (before.windCaption != shown_.windCaption) Q_EMIT windCaptionChanged();
    if (InstrumentTexts now(engine_.state); now != instruments_) {
        instruments_ = std::move(now);
        Q_EMIT instrumentsChanged();
    }
}

}  // namespace tidewright::ui
