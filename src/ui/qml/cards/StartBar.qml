import QtQuick
import QtQuick.Layouts
import Tidewright

/// The start button, always in sight, under what went wrong, if anything did.
Rectangle {
    id: root

    required property GatewaySimulator simulator

    implicitHeight: column.implicitHeight + 2 * Pel.space
    color: Pel.panelAlt

    Rectangle {
        width: parent.width
        height: Pel.hair
        color: Pel.line
    }

    ColumnLayout {
        id: column

        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Pel.margin, Pel.contentWidth)
        spacing: Pel.gap

        Row {
            Layout.alignment: Qt.AlignHCenter
            visible: root.simulator.lastError !== ""
            spacing: Pel.gap

            Symbol {
                id: sign

                name: "exclamationmark.triangle"
                color: Pel.danger
            }
            BalancedText {
                objectName: "lastError"
                widest: column.width - sign.width - parent.spacing
                text: root.simulator.lastError
                color: Pel.danger
                Accessible.role: Accessible.AlertMessage
            }
        }

        PrimaryButtonStyle {
            objectName: "startButton"
            Layout.fillWidth: true
            Layout.maximumWidth: Pel.startWidth
            Layout.alignment: Qt.AlignHCenter
            focus: true
            shortcut: "F5"
            text: root.simulator.isRunning ? "Arrêter l'émission" : "Démarrer l'émission"
            systemImage: root.simulator.isRunning ? "stop" : "play"
            tone: root.simulator.isRunning ? Pel.danger : Pel.brand
            onClicked: {
                if (root.simulator.isRunning)
                    root.simulator.stop();
                else
                    root.simulator.start();
            }
        }
    }
}
