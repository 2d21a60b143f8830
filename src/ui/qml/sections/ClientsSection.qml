pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// Every connected client: from where, since when, how much it was sent, and a button that throws it
/// out.
ColumnLayout {
    id: root

    required property GatewaySimulator simulator

    spacing: Pel.gap
    Accessible.role: Accessible.List
    Accessible.name: "Clients TCP"

    Repeater {
        model: root.simulator.clients

        RowLayout {
            id: client

            required property double number
            required property string address
            required property string details

            Layout.fillWidth: true
            spacing: Pel.gap
            Accessible.role: Accessible.ListItem
            Accessible.name: address
            Accessible.description: details

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 0

                Text {
                    Layout.fillWidth: true
                    text: client.address
                    color: Pel.ink
                    font.family: Pel.monoFamily
                    font.pixelSize: Pel.textSize
                    textFormat: Text.PlainText
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
                Caption {
                    Layout.fillWidth: true
                    text: client.details
                    Accessible.ignored: true
                }
            }
            GhostButtonStyle {
                text: "Déconnecter"
                Accessible.description: client.address
                onClicked: root.simulator.dropClient(client.number)
            }
        }
    }
    Caption {
        Layout.fillWidth: true
        visible: text !== ""
        text: root.simulator.clients.beyondText
    }

    Timer {
        interval: Pel.clockInterval
        repeat: true
        running: root.visible
        triggeredOnStart: true
        onTriggered: root.simulator.refreshClients()
    }
}
