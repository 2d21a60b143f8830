#pragma once

#include <QObject>
#include <QStringList>

#include "gateway/FailureInjection.h"
#include "gateway/GatewaySimulator.h"
#include "gateway/SimulationConfig.h"
#include "platform/SystemRandom.h"
#include "platform/VirtualMainLoop.h"
#include "simulation/BoatSimulationEngine.h"
#include "support/PretendHost.h"
#include "ui/ConfigBridge.h"
#include "ui/EngineBridge.h"
#include "ui/FailureBridge.h"
#include "ui/SimulatorBridge.h"

namespace tidewright::ui {

/// A whole gateway on pretend transports, in time that the test lets pass, and the bridges to it.
class WindowBench : public QObject {
    Q_OBJECT
    Q_PROPERTY(tidewright::ui::EngineBridge* engine READ engineBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::ConfigBridge* config READ configBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::FailureBridge* failure READ failureBridge CONSTANT)
    Q_PROPERTY(tidewright::ui::SimulatorBridge* simulator READ simulatorBridge CONSTANT)

public:
    EngineBridge* engineBridge() { return &engineBridge_; }
    ConfigBridge* configBridge() { return &configBridge_; }
    FailureBridge* failureBridge() { return &failureBridge_; }
    SimulatorBridge* simulatorBridge() { return &simulatorBridge_; }

    Q_INVOKABLE void advance(int milliseconds) {
        loop.advance(std::chrono::milliseconds(milliseconds));
    }
    Q_INVOKABLE void connectClients(const QStringList& addresses) {
        std::vector<std::string> list;
        for (const QString& each : addresses) list.push_back(each.toStdString());
        host.tcp->onClientsChanged(list);
        advance(50);
    }
    Q_INVOKABLE void failListening() {
        host.tcp->onFailed("address in use");
        advance(50);
    }
    Q_INVOKABLE void log(const QString& transport, const QString& text) {
        simulator.log(transport.toStdString(), text.toStdString());
        advance(50);
    }
    Q_INVOKABLE int targetCount() const { return static_cast<int>(engine.traffic.targets.size()); }
    Q_INVOKABLE int dropAllClientsCalls() const { return host.tcp->dropAllClientsCalls; }
    Q_INVOKABLE QString clipboard() const { return QString::fromStdString(host.clipboard); }

    platform::VirtualMainLoop loop;
    platform::SystemRandom random;
    PretendHost host;
    simulation::BoatSimulationEngine engine{loop, random};
    gateway::SimulationConfig config;
    gateway::FailureInjection failure;
    gateway::GatewaySimulator simulator{engine, config, failure, host.host(loop, random)};

private:
    EngineBridge engineBridge_{engine};
    ConfigBridge configBridge_{config};
    FailureBridge failureBridge_{failure};
    SimulatorBridge simulatorBridge_{simulator, config, loop,
                                     [this](const std::string& text) { host.clipboard = text; }};
};

}  // namespace tidewright::ui
