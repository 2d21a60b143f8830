#include "ui/EngineBridge.h"

#include <utility>

#include "ui/Texts.h"

namespace tidewright::ui {

using simulation::ControlMode;
using simulation::Maneuver;
using simulation::SailingProgram;

EngineBridge::EngineBridge(simulation::BoatSimulationEngine& engine)
    : engine_(engine),
      manual_(engine.manual, this),
      anchorSettings_(engine.anchorSettings, this),
      environment_(engine.environment, this),
      instruments_(engine.state),
      shown_(current()),
      changes_(engine.observe([this] { update(); })) {}

QStringList EngineBridge::modes() {
    return toQt(simulation::allControlModes, [](ControlMode each) { return rawValue(each); });
}

QStringList EngineBridge::modeLabels() {
    return toQt(simulation::allControlModes, [](ControlMode each) { return label(each); });
}

QStringList EngineBridge::programs() {
    return toQt(simulation::allSailingPrograms, [](SailingProgram each) { return rawValue(each); });
}

QStringList EngineBridge::programLabels() {
    return toQt(simulation::allSailingPrograms, [](SailingProgram each) { return label(each); });
}

QString EngineBridge::mode() const {
    return toQt(rawValue(engine_.mode));
}

QString EngineBridge::program() const {
    return toQt(rawValue(engine_.program));
}

QString EngineBridge::programDescription() const {
    return toQt(description(engine_.program));
}

QString EngineBridge::autoStatus() const {
    return QString::fromStdString(engine_.autoStatus);
}

void EngineBridge::setMode(const QString& value) {
    if (const auto chosen = simulation::controlMode(value.toStdString())) engine_.mode = *chosen;
}

void EngineBridge::setProgram(const QString& value) {
    if (const auto chosen = simulation::sailingProgram(value.toStdString()))
        engine_.program = *chosen;
}

bool EngineBridge::triggerManeuver(bool tack) {
    return engine_.triggerManeuver(tack ? Maneuver::tack : Maneuver::gybe);
}

EngineBridge::Shown EngineBridge::current() const {
    return {engine_.mode,   engine_.program,        engine_.autoStatus,
            engine_.manual, engine_.anchorSettings, engine_.environment};
}

void EngineBridge::update() {
    const Shown before = std::exchange(shown_, current());
    if (std::pair(before.mode, before.program) != std::pair(shown_.mode, shown_.program))
        Q_EMIT steeringChanged();
    if (before.autoStatus != shown_.autoStatus) Q_EMIT autoStatusChanged();
    if (before.manual != shown_.manual) Q_EMIT manual_.changed();
    if (before.anchorSettings != shown_.anchorSettings) Q_EMIT anchorSettings_.changed();
    if (before.environment != shown_.environment) Q_EMIT environment_.changed();
    if (InstrumentTexts now(engine_.state); now != instruments_) {
        instruments_ = std::move(now);
        Q_EMIT instrumentsChanged();
    }
}

}  // namespace tidewright::ui
