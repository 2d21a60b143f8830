#include "ui/SimulatorBridge.h"

#include <fmt/format.h>

#include <utility>

#include "ui/Texts.h"

namespace tidewright::ui {

SimulatorBridge::SimulatorBridge(gateway::GatewaySimulator& simulator,
                                 const gateway::SimulationConfig& config, platform::MainLoop& loop,
                                 SetClipboard setClipboard)
    : simulator_(simulator),
      config_(config),
      loop_(loop),
      setClipboard_(std::move(setClipboard)),
      console_(simulator, this),
      changes_(simulator.observe([this] { updateSoon(); })),
      configChanges_(config.observe([this] { updateSoon(); })) {}

QString SimulatorBridge::ipAddress() const {
    const auto& interface = simulator_.interface.get();
    return interface ? toQt(interface->ip) : QStringLiteral("Aucun réseau");
}

QString SimulatorBridge::clientText() const {
    if (!config_.tcpEnabled) return QStringLiteral("UDP broadcast");
    const auto& clients = simulator_.tcpClients.get();
    if (clients.empty()) return QStringLiteral("en attente de connexion");
    if (clients.size() == 1) return toQt("1 client : " + clients.front());
    return toQt(fmt::format("{} clients connectés", clients.size()));
}

QString SimulatorBridge::messageRate() const {
    return toQt(fmt::format("{} msg/s", simulator_.messagesPerSecond.get()));
}

QString SimulatorBridge::byteRate() const {
    return toQt(fmt::format("{:.1f} KB/s", simulator_.kilobytesPerSecond.get()));
}

QString SimulatorBridge::lastError() const {
    return toQt(simulator_.lastError->value_or(std::string()));
}

void SimulatorBridge::setConsolePaused(bool value) {
    simulator_.consolePaused = value;
    update();
}

void SimulatorBridge::start() {
    simulator_.start();
    update();
}

void SimulatorBridge::stop() {
    simulator_.stop();
    update();
}

void SimulatorBridge::regenerateAIS() {
    simulator_.regenerateAIS();
}

void SimulatorBridge::dropClients() {
    simulator_.dropClients();
}

void SimulatorBridge::clearConsole() {
    simulator_.clearConsole();
    update();
}

void SimulatorBridge::copyConsole() const {
    simulator_.copyConsole();
}

void SimulatorBridge::copyAddress() const {
    setClipboard_(ipAddress().toStdString());
}

void SimulatorBridge::copySelection() const {
    if (const std::string text = console_.selectedText(); !text.empty()) setClipboard_(text);
}

void SimulatorBridge::updateSoon() {
    if (std::exchange(updating_, true)) return;
    loop_.after(batchPeriod, lifetime_.guard([this] {
        updating_ = false;
        update();
    }));
}

void SimulatorBridge::update() {
    console_.update();
    Q_EMIT changed();
}

}  // namespace tidewright::ui
