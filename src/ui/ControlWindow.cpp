#include "ui/ControlWindow.h"

#include <QVariant>
#include <utility>

#include "platform/Check.h"

void qml_register_types_Tidewright();  // generated; a static library would drop it if nobody called

namespace tidewright::ui {

ControlWindow::ControlWindow(Gateway gateway, platform::MainLoop& loop,
                             SimulatorBridge::SetClipboard setClipboard)
    : engine_(gateway.engine),
      config_(gateway.config),
      failure_(gateway.failure),
      simulator_(gateway.simulator, gateway.config, gateway.failure, loop,
                 std::move(setClipboard)) {
    qml_register_types_Tidewright();
    qml_.setInitialProperties({{QStringLiteral("engine"), QVariant::fromValue(&engine_)},
                               {QStringLiteral("config"), QVariant::fromValue(&config_)},
                               {QStringLiteral("failure"), QVariant::fromValue(&failure_)},
                               {QStringLiteral("simulator"), QVariant::fromValue(&simulator_)}});
    qml_.load(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Tidewright/qml/Main.qml")));
    platform::check(!qml_.rootObjects().isEmpty(), "the window cannot be built");
}

}  // namespace tidewright::ui
