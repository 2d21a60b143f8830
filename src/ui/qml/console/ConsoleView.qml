import QtQuick
import QtQuick.Layouts
import Tidewright

/// The live log, with the throughput, the buttons that pause, clear and copy it, and its filter.
ColumnLayout {
    id: root

    required property GatewaySimulator simulator
    required property bool narrow
    required property int listHeight

    spacing: Pel.gap

    component Rate: Text {
        color: Pel.inkMuted
        font.family: Pel.monoFamily
        font.pixelSize: Pel.captionSize
        font.weight: Font.Medium
        textFormat: Text.PlainText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
        Accessible.ignored: text === ""
    }

    GridLayout {
        Layout.fillWidth: true
        columns: root.narrow ? 1 : 2
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

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
            Rate {
                objectName: "missed"
                Layout.fillWidth: true
                text: root.simulator.missedText
                color: Pel.warn
                elide: Text.ElideRight
            }
        }
        RowLayout {
            spacing: Pel.gap

            GhostButtonStyle {
                text: root.simulator.consolePaused ? "Reprendre" : "Pause"
                shortcut: "Ctrl+P"
                onClicked: root.simulator.consolePaused = !root.simulator.consolePaused
            }
            GhostButtonStyle {
                text: "Clear"
                hint: "Vider la console"
                shortcut: "Ctrl+L"
                onClicked: root.simulator.clearConsole()
            }
            CopyButton {
                text: "Copier"
                hint: "Toute la console, ou les lignes sélectionnées"
                onClicked: root.simulator.copyConsole()
            }
        }
    }

    ConsoleFilterBar {
        Layout.fillWidth: true
        model: root.simulator.console
        narrow: root.narrow
    }

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: root.listHeight
        radius: Pel.consoleRadius
        color: Pel.panelAlt
        border.width: Pel.hair
        border.color: Pel.line

        ConsoleList {
            id: list

            objectName: "consoleList"
            anchors.fill: parent
            anchors.margins: Pel.consolePadding
            model: root.simulator.console
            paused: root.simulator.consolePaused
            onCopyRequested: root.simulator.copySelection()
        }
        GhostButtonStyle {
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: Pel.consolePadding + Pel.scrollBarWidth
            visible: !list.following && !list.atEnd
            opaque: true
            text: "Dernières lignes"
            systemImage: "chevron.down"
            onClicked: list.showEnd()
        }
        FocusRing {
            radius: Pel.consoleRadius
            active: list.activeFocus
        }
    }
}
