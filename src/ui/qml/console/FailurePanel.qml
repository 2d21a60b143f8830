import QtQuick
import QtQuick.Layouts
import Tidewright

/// The faults to inject.
ColumnLayout {
    id: root

    required property GatewaySimulator simulator
    required property FailureInjection failure

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
            hint: "Coupe toutes les pannes"
            enabled: root.failure.activeText !== ""
            onClicked: root.failure.reset()
        }
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Couper le flux"
        setting: root.failure.stopStream
        onEdited: value => root.failure.stopStream = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Couper le GPS"
        setting: root.failure.disableGPS
        onEdited: value => root.failure.disableGPS = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Couper le vent"
        setting: root.failure.disableWind
        onEdited: value => root.failure.disableWind = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Couper l'AIS"
        setting: root.failure.disableAIS
        onEdited: value => root.failure.disableAIS = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Checksum invalide"
        setting: root.failure.invalidChecksum
        onEdited: value => root.failure.invalidChecksum = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Déconnexions aléatoires"
        setting: root.failure.randomDisconnections
        onEdited: value => root.failure.randomDisconnections = value
    }
    StepperRow {
        Layout.fillWidth: true
        label: "Latence"
        valueText: root.failure.latencyText
        value: root.failure.latencyMs
        from: 0
        to: 2000
        step: 50
        onEdited: value => root.failure.latencyMs = value
    }
    StepperRow {
        Layout.fillWidth: true
        label: "Perte de paquets"
        valueText: root.failure.packetLossText
        value: root.failure.packetLossPercent
        from: 0
        to: 100
        step: 5
        onEdited: value => root.failure.packetLossPercent = value
    }
    GhostButtonStyle {
        Layout.fillWidth: true
        Layout.topMargin: Pel.gap
        text: "Lâcher les clients TCP"
        enabled: root.simulator.isRunning
        onClicked: root.simulator.dropClients()
    }
}
