#include "ui/ConfigBridge.h"

#include <fmt/format.h>

#include <algorithm>

#include "gateway/GatewayPreset.h"
#include "ui/PortNumber.h"
#include "ui/Texts.h"

namespace tidewright::ui {

using gateway::GatewayPreset;

namespace {

std::string name(const GatewayPreset& preset) {
    if (preset.model.empty()) return std::string(preset.manufacturer);
    return fmt::format("{} {}", preset.manufacturer, preset.model);
}

std::string details(const GatewayPreset& preset) {
    return fmt::format("TCP {} · UDP {} · {}", preset.tcpPort, preset.udpPort, preset.gpsTalker);
}

}  // namespace

ConfigBridge::ConfigBridge(gateway::SimulationConfig& config)
    : config_(config), changes_(config.observe([this] { Q_EMIT changed(); })) {}

QStringList ConfigBridge::presets() {
    return toQt(GatewayPreset::all, [](const GatewayPreset& each) { return each.id; });
}

QStringList ConfigBridge::presetNames() {
    return toQt(GatewayPreset::all, name);
}

QStringList ConfigBridge::presetDetails() {
    return toQt(GatewayPreset::all, details);
}

QStringList ConfigBridge::talkers() {
    return {QStringLiteral("GP"), QStringLiteral("GN"), QStringLiteral("GL"), QStringLiteral("GA"),
            QStringLiteral("II")};
}

QString ConfigBridge::preset() const {
    return toQt(config_.preset->id);
}

bool ConfigBridge::presetModified() const {
    return config_.differsFromPreset();
}

QString ConfigBridge::portProblem(const QString& text) {
    if (portNumber(text.toStdString())) return {};
    return QStringLiteral("Un port va de 0 à 65535,");
}

void ConfigBridge::enterTcpPort(const QString& text) {
    if (const auto port = portNumber(text.toStdString())) config_.tcpPort = *port;
}

void ConfigBridge::enterUdpPort(const QString& text) {
    if (const auto port = portNumber(text.toStdString())) config_.udpPort = *port;
}

void ConfigBridge::apply(const QString& preset) {
    const auto chosen =
        std::ranges::find(GatewayPreset::all, preset.toStdString(), &GatewayPreset::id);
    if (chosen != GatewayPreset::all.end()) config_.apply(*chosen);
}

}  // namespace tidewright::ui
