#include "ui/ControlWindow.h"

#include <QVariant>
#include <utility>

#include "platform/Check.h"

void qml_register_types_Tidewright();  // generated; a static library would drop it if nobody called

namespace tidewright::ui {

ControlWindow::ControlWindow(gateway::Assembly& assembly, platform::MainLoop& loop,
                             SimulatorBridge::SetClipboard setClipboard)
    : engine_(assembly.engine),
      settings_(assembly),
      actions_(assembly.actions),
      simulator_(assembly, loop, std::move(setClipboard)) {
    qml_register_types_Tidewright();
    qml_.setInitialProperties({{QStringLiteral("engine"), QVariant::fromValue(&engine_)},
                               {QStringLiteral("settings"), QVariant::fromValue(&settings_)},
                               {QStringLiteral("actions"), QVariant::fromValue(&actions_)},
                               {QStringLiteral("simulator"), QVariant::fromValue(&simulator_)}});
    qml_.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tidewright/qml/Main.qml")));
    platform::check(!qml_.rootObjects().isEmpty(), "the window cannot be built");
}

}  // namespace tidewright::ui
