#pragma once

#include <QObject>
#include <QStringList>
#include <QVariant>

#include "gateway/Assembly.h"
#include "platform/Check.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/EarthModel.h"
#include "support/NumberedClients.h"
#include "support/PretendHost.h"
#include "ui/ActionsBridge.h"
#include "ui/EngineBridge.h"
#include "ui/SettingsBridge.h"
#include "ui/SimulatorBridge.h"

namespace tidewright::ui {

/// A whole gateway on pretend transports, in time that the test lets pass, and the bridges to it.
class WindowBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(tidewright::ui::EngineBridge* engine READ engineBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::SettingsBridge* settings READ settingsBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::ActionsBridge* actions READ actionsBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::SimulatorBridge* simulator READ simulatorBridge CONSTANT)

public:
    EngineBridge* engineBridge() { return &engineBridge_; }
    SettingsBridge* settingsBridge() { return &settingsBridge_; }
    ActionsBridge* actionsBridge() { return &actionsBridge_; }
    SimulatorBridge* simulatorBridge() { return &simulatorBridge_; }

    /// What a setting holds, as scripts write it.
    Q_INVOKABLE QString value(const QString& name) const {
        return QString::fromStdString(
            gateway::textOf(assembly.settings.at(name.toStdString()).read()));
    }
    /// Writes a setting as a script does.
    Q_INVOKABLE void set(const QString& name, const QVariant& value) {
        platform::check(
            assembly.settings.writeTexts({{name.toStdString(), value.toString().toStdString()}})
                .empty(),
            "a test must write what fits");
    }
    Q_INVOKABLE void advance(int milliseconds) {
        loop.advance(std::chrono::milliseconds(milliseconds));
    }
    Q_INVOKABLE void connectClients(const QStringList& addresses) {
        std::vector<std::string> list;
        for (const QString& each : addresses) list.push_back(each.toStdString());
        host.tcp->onClientsChanged(network::numberedClients(list));
        advance(50);
    }
    Q_INVOKABLE void failListening() {
        host.tcp->onFailed("address in use");
        advance(50);
    }
    Q_INVOKABLE void log(const QString& transport, const QString& text) {
        simulator.log(transport.toStdString(), text.toStdString());
        advance(200);
    }
    /// The same, for lines that come within one batch.
    Q_INVOKABLE void logQuietly(const QString& transport, const QString& text) {
        simulator.log(transport.toStdString(), text.toStdString());
    }
    /// One vessel alone, so many metres from where the boat is now.
    Q_INVOKABLE void putVessel(const QString& name, double east, double north) {
        const simulation::BoatState& boat = engine.state;
        simulation::AISTarget vessel;
        vessel.name = name.toStdString();
        vessel.latitude = boat.latitude + north / simulation::metresPerDegreeOfLatitude;
        vessel.longitude =
            boat.longitude + east / simulation::metresPerDegreeOfLongitude(boat.latitude);
        engine.traffic.targets = {vessel};
        engine.notify();
    }
    Q_INVOKABLE int targetCount() const { return static_cast<int>(engine.traffic.targets.size()); }
    Q_INVOKABLE int dropAllClientsCalls() const { return host.tcp->dropAllClientsCalls; }
    Q_INVOKABLE QList<int> droppedClients() const {
        return {host.tcp->dropped.begin(), host.tcp->dropped.end()};
    }
    Q_INVOKABLE QString clipboard() const { return QString::fromStdString(host.clipboard); }

    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    PretendHost host;
    gateway::Assembly assembly{host.host(loop, random)};
    simulation::BoatSimulationEngine& engine = assembly.engine;
    gateway::GatewaySimulator& simulator = assembly.gateway;

private:
    EngineBridge engineBridge_{engine};
    SettingsBridge settingsBridge_{assembly};
    ActionsBridge actionsBridge_{assembly.actions};
    SimulatorBridge simulatorBridge_{assembly, loop,
                                     [this](const std::string& text) { host.clipboard = text; }};
};

}  // namespace tidewright::ui
