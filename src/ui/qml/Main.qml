import QtQuick
import QtQuick.Window
import Tidewright

/// The program's one window.
Window {
    id: root

    required property BoatSimulationEngine engine
    required property Settings settings
    required property Actions actions
    required property GatewaySimulator simulator

    width: Math.min(Pel.windowWidth, Screen.desktopAvailableWidth)
    height: Math.min(Pel.windowHeight, Screen.desktopAvailableHeight)
    minimumWidth: Pel.minimumWidth
    minimumHeight: Math.min(Pel.minimumHeight, Screen.desktopAvailableHeight)
    visible: true
    color: Pel.canvas
    title: "Tidewright"

    ContentView {
        anchors.fill: parent
        engine: root.engine
        settings: root.settings
        actions: root.actions
        simulator: root.simulator
    }
}
