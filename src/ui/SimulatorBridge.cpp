#include "ui/SimulatorBridge.h"

#include <fmt/format.h>

#include <utility>

#include "ui/Texts.h"

namespace tidewright::ui {

SimulatorBridge::SimulatorBridge(gateway::Assembly& assembly, platform::MainLoop& loop,
                                 SetClipboard setClipboard)
    : simulator_(assembly.gateway),
      config_(assembly.config),
      loop_(loop),
      setClipboard_(std::move(setClipboard)),
      console_(assembly.gateway, this),
      clients_(this),
      shown_(current()),
      changes_(assembly.gateway.observe([this] { updateSoon(); })),
      settingsChanges_(assembly.settings.observe([this] { updateSoon(); })) {}

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

QString SimulatorBridge::missedText() const {
    const auto missed = simulator_.consoleMissedCount() - missedBefore_;
    if (!consolePaused() || missed == 0) return {};
    return toQt(missed == 1 ? "1 ligne manquée" : fmt::format("{} lignes manquées", missed));
}

void SimulatorBridge::setConsolePaused(bool value) {
    missedBefore_ = simulator_.consoleMissedCount();
    simulator_.consolePaused = value;
    update();
    updateConsole();  // what came before the pause shows at once, not during it
}

void SimulatorBridge::start() {
    simulator_.start();
    update();
    updateConsole();
}

void SimulatorBridge::stop() {
    simulator_.stop();
    update();
    updateConsole();
}

void SimulatorBridge::dropClient(double number) {
    simulator_.dropClient(static_cast<std::uint64_t>(number));
}

void SimulatorBridge::refreshClients() {
    clients_.update(simulator_.clients, loop_.wallClock());
}

void SimulatorBridge::clearConsole() {
    simulator_.clearConsole();
    updateConsole();
}

void SimulatorBridge::copyConsole() const {
    if (const std::string lines = console_.selectedLines(); !lines.empty())
        setClipboard_(lines);
    else
        simulator_.copyConsole();
}

void SimulatorBridge::copyAddress() const {
    setClipboard_(ipAddress().toStdString());
}

void SimulatorBridge::copySelection() const {
    if (const std::string text = console_.selectedText(); !text.empty()) setClipboard_(text);
}

SimulatorBridge::Shown SimulatorBridge::current() const {
    return {.isRunning = isRunning(),
            .isReachable = isReachable(),
            .hasClients = hasClients(),
            .isSilent = isSilent(),
            .consolePaused = consolePaused(),
            .ipAddress = ipAddress(),
            .clientText = clientText(),
            .messageRate = messageRate(),
            .byteRate = byteRate(),
            .missedText = missedText(),
            .lastError = lastError()};
}

void SimulatorBridge::updateSoon() {
    updateConsoleSoon();
    if (std::exchange(updating_, true)) return;
    loop_.after(batchPeriod, lifetime_.guard([this] {
        updating_ = false;
        update();
    }));
}

void SimulatorBridge::update() {
    if (!simulator_.clients->empty() || clients_.rowCount() > 0) refreshClients();
    if (Shown now = current(); now != shown_) {
        shown_ = std::move(now);
        Q_EMIT changed();
    }
}

void SimulatorBridge::updateConsoleSoon() {
    if (console_.isUpToDate() || std::exchange(updatingConsole_, true)) return;
    loop_.after(consolePeriod, lifetime_.guard([this] {
        updatingConsole_ = false;
        updateConsole();
    }));
}

void SimulatorBridge::updateConsole() {
    console_.update();
}

}  // namespace tidewright::ui
