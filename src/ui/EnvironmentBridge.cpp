#include "ui/EnvironmentBridge.h"

#include <fmt/format.h>

#include "ui/Texts.h"

namespace tidewright::ui {

using simulation::SailingEnvironment;
using simulation::WindPreset;

QStringList EnvironmentBridge::windPresets() {
    return toQt(simulation::allWindPresets, [](WindPreset each) { return rawValue(each); });
}

QStringList EnvironmentBridge::windPresetLabels() {
    return toQt(simulation::allWindPresets, [](WindPreset each) { return label(each); });
}

QString EnvironmentBridge::windPreset() const {
    return toQt(rawValue(environment_->windPreset));
}

void EnvironmentBridge::setWindPreset(const QString& value) {
    if (const auto chosen = simulation::windPreset(value.toStdString()))
        assignMember(environment_, &SailingEnvironment::windPreset, *chosen);
}

QString EnvironmentBridge::windCaption() const {
    const auto [low, high] = environment_->windRange();
    return toQt(
        fmt::format("Zones de vent de {:.0f}–{:.0f} nœuds, qui changent toutes les 5 à 10 minutes.",
                    low, high));
}

}  // namespace tidewright::ui
