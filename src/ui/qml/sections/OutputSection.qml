pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// Where the sentences go, and under whose name. `locked`: outputs are open, on the ports they have.
ColumnLayout {
    id: root

    required property SimulationConfig config
    required property bool locked

    spacing: Pel.gap

    SectionLabel {
        text: "Sorties"
    }

    component Output: ColumnLayout {
        id: output

        required property string transport
        required property bool on
        required property string port

        signal switched(value: bool)
        signal entered(text: string)

        Layout.fillWidth: true
        spacing: Pel.tight

        RowLayout {
            Layout.fillWidth: true
            spacing: Pel.gap

            SwitchRow {
                Layout.fillWidth: true
                leading: true
                text: output.transport
                setting: output.on
                onEdited: value => output.switched(value)
            }
            Caption {
                text: "Port " + output.transport
                Accessible.ignored: true
            }
            PortField {
                id: field

                label: "Port " + output.transport
                enabled: !root.locked
                setting: output.port
                check: text => root.config.portProblem(text)
                onEntered: text => output.entered(text)
            }
        }
        Problem {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignRight
            text: field.problem === "" ? "" : field.problem + " " + output.port + " reste en vigueur."
        }
    }

    Output {
        transport: "TCP"
        on: root.config.tcpEnabled
        port: root.config.tcpPort
        onSwitched: value => root.config.tcpEnabled = value
        onEntered: text => root.config.enterTcpPort(text)
    }
    Output {
        transport: "UDP"
        on: root.config.udpEnabled
        port: root.config.udpPort
        onSwitched: value => root.config.udpEnabled = value
        onEntered: text => root.config.enterUdpPort(text)
    }
    Caption {
        Layout.fillWidth: true
        visible: root.locked
        text: "Une sortie rallumée pendant l'émission ne s'ouvre qu'au prochain démarrage."
    }

    SectionLabel {
        Layout.topMargin: Pel.gap
        text: "Identifiant GPS (talker)"
    }
    SegmentedPicker {
        Layout.fillWidth: true
        label: "Identifiant GPS (talker)"
        values: root.config.talkers
        labels: root.config.talkers
        current: root.config.gpsTalker
        onPicked: value => root.config.gpsTalker = value
    }
}
