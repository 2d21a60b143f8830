import QtQuick
import QtQuick.Layouts
import Tidewright

/// The live log, with the throughput, and the buttons that pause, clear and copy it.
ColumnLayout {
    id: root

    required property GatewaySimulator simulator

    spacing: Pel.gap

    component Rate: Text {
        color: Pel.inkMuted
        font.family: Pel.monoFamily
        font.pixelSize: Pel.captionSize
        font.weight: Font.Medium
        textFormat: Text.PlainText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.gap

        Rate {
            objectName: "messageRate"
            text: root.simulator.messageRate
            color: Pel.ok
        }
        Rate {
            objectName: "byteRate"
            text: root.simulator.byteRate
        }
        Item {
            Layout.fillWidth: true
        }
        GhostButtonStyle {
            text: root.simulator.consolePaused ? "Reprendre" : "Pause"
            onClicked: root.simulator.consolePaused = !root.simulator.consolePaused
        }
        GhostButtonStyle {
            text: "Clear"
            onClicked: root.simulator.clearConsole()
        }
        GhostButtonStyle {
            text: "Copier"
            onClicked: root.simulator.copyConsole()
        }
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: Pel.consoleHeight
        radius: Pel.consoleRadius
        color: Pel.panelAlt
        border.width: Pel.hair
        border.color: Pel.line

        ConsoleList {
            objectName: "consoleList"
            anchors.fill: parent
            anchors.margins: Pel.consolePadding
            model: root.simulator.console
            selection: root.simulator.console.selection
            paused: root.simulator.consolePaused
            onCopyRequested: root.simulator.copySelection()
            onSelectAllRequested: root.simulator.console.selectAll()
        }
        FocusRing {
            radius: Pel.consoleRadius
            active: root.Window.activeFocusItem?.objectName === "consoleList"
        }
    }
}
