import QtQuick
import QtQuick.Layouts
import Tidewright

/// The address to type into the companion app, and who is connected.
ColumnLayout {
    id: root

    required property Settings settings
    required property GatewaySimulator simulator
    required property bool copied
    property bool showClients: false

    spacing: Pel.space

    GridLayout {
        Layout.fillWidth: true
        columns: width >= Pel.sideBySideWidth ? 4 : 2
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        StatTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 2
            Layout.columnSpan: 2
            label: "Adresse IP"
            value: root.simulator.ipAddress
            tone: root.simulator.isReachable ? Pel.brand : Pel.warn
        }
        StatTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            label: "Port TCP"
            value: root.settings.number("network.tcp-port").text
        }
        StatTile {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            label: "Port UDP"
            value: root.settings.number("network.udp-port").text
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.space

        GhostButtonStyle {
            text: "Copier l'adresse"
            systemImage: root.copied ? "checkmark" : "doc.on.doc"
            enabled: root.simulator.isReachable
            Accessible.description: root.copied ? "copiée" : ""
            onClicked: {
                root.simulator.copyAddress();
                root.copied = true;
                feedback.restart();
            }
        }
        Dot {
            color: root.simulator.hasClients ? Pel.ok : Pel.inkMuted
            pulsing: false
        }
        Caption {
            objectName: "clientText"
            Layout.fillWidth: true
            text: root.simulator.clientText
            color: root.simulator.hasClients ? Pel.ok : Pel.inkMuted
        }
        PlainButton {
            implicitWidth: Pel.rowHeight
            implicitHeight: Pel.rowHeight
            visible: root.simulator.hasClients
            text: "Détail des clients"
            hint: text
            Accessible.description: root.showClients ? "déplié" : "replié"
            onClicked: root.showClients = !root.showClients

            contentItem: Item {
                Symbol {
                    anchors.centerIn: parent
                    name: "chevron.down"
                    rotation: root.showClients ? 180 : 0
                    color: Pel.ink
                }
            }
            background: Item {
                FocusRing {
                    active: parent.parent.visualFocus
                }
            }
        }
    }

    ClientsSection {
        Layout.fillWidth: true
        visible: root.showClients && root.simulator.hasClients
        simulator: root.simulator
    }

    Timer {
        id: feedback

        interval: Pel.feedbackInterval
        onTriggered: root.copied = false
    }
}
