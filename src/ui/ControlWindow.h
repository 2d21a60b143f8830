#pragma once

#include <QQmlApplicationEngine>

#include "gateway/FailureInjection.h"
#include "gateway/GatewaySimulator.h"
#include "gateway/SimulationConfig.h"
#include "platform/MainLoop.h"
#include "simulation/BoatSimulationEngine.h"
#include "ui/ConfigBridge.h"
#include "ui/EngineBridge.h"
#include "ui/FailureBridge.h"
#include "ui/SimulatorBridge.h"

namespace tidewright::ui {

/// The four long-lived objects that the window shows.
struct Gateway {
    simulation::BoatSimulationEngine& engine;
    gateway::SimulationConfig& config;
    gateway::FailureInjection& failure;
    gateway::GatewaySimulator& simulator;
};

/// The control window on the screen, as long as this lives. Needs an application object.
class ControlWindow {
public:
    /// All arguments must outlive this.
    ControlWindow(Gateway gateway, platform::MainLoop& loop,
                  SimulatorBridge::SetClipboard setClipboard);

    /// The window's root object.
    QObject* root() const { return qml_.rootObjects().constFirst(); }

private:
    EngineBridge engine_;
    ConfigBridge config_;
    FailureBridge failure_;
    SimulatorBridge simulator_;
    QQmlApplicationEngine qml_;
};

}  // namespace tidewright::ui
