pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The faults to inject.
ColumnLayout {
    id: root

    required property GatewaySimulator simulator
    required property Settings settings
    required property Actions actions

    spacing: Pel.tight

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.gap

        SectionLabel {
            Layout.fillWidth: true
            text: "Test de robustesse"
        }
        GhostButtonStyle {
            text: "Tout rétablir"
            hint: root.actions.label("clear-faults")
            enabled: root.settings.faultsText !== ""
            onClicked: root.actions.perform("clear-faults")
        }
    }
    Repeater {
        model: ["stop-stream", "no-gps", "no-wind", "no-ais", "bad-checksum", "disconnections"]

        SwitchRow {
            required property string modelData

            setting: root.settings.flag("faults." + modelData)
        }
    }
    Repeater {
        model: ["latency", "loss"]

        StepperRow {
            required property string modelData

            setting: root.settings.number("faults." + modelData)
        }
    }
    GhostButtonStyle {
        Layout.fillWidth: true
        Layout.topMargin: Pel.gap
        text: root.actions.label("drop-clients")
        enabled: root.simulator.isRunning
        onClicked: root.actions.perform("drop-clients")
    }
}
