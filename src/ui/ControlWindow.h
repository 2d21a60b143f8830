#pragma once

#include <QQmlApplicationEngine>

#include "gateway/Assembly.h"
#include "platform/MainLoop.h"
#include "ui/ActionsBridge.h"
#include "ui/EngineBridge.h"
#include "ui/SettingsBridge.h"
#include "ui/SimulatorBridge.h"

namespace tidewright::ui {

/// The control window on the screen, as long as this lives. Needs an application object.
class ControlWindow {
public:
    /// All arguments must outlive this.
    ControlWindow(gateway::Assembly& assembly, platform::MainLoop& loop,
                  SimulatorBridge::SetClipboard setClipboard);

    /// The window's root object.
    QObject* root() const { return qml_.rootObjects().constFirst(); }

private:
    EngineBridge engine_;
    SettingsBridge settings_;
    ActionsBridge actions_;
    SimulatorBridge simulator_;
    QQmlApplicationEngine qml_;
};

}  // namespace tidewright::ui
