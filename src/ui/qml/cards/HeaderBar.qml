import QtQuick
import QtQuick.Layouts
import Tidewright

/// The program's name, whether it is emitting, and which faults are on.
Rectangle {
    id: root

    required property GatewaySimulator simulator
    required property Settings settings
    readonly property color tone: !simulator.isRunning ? Pel.inkMuted
                                                       : simulator.isSilent ? Pel.warn : Pel.ok

    signal faultsRequested()

    implicitHeight: Pel.headerHeight
    color: Pel.panelAlt

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Pel.hair
        color: Pel.line
    }

    RowLayout {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Pel.margin, Pel.contentWidth)
        height: parent.height
        spacing: Pel.space

        Symbol {
            implicitWidth: Pel.headingSymbolSize
            implicitHeight: Pel.headingSymbolSize
            name: "sailboat"
            color: Pel.brand
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            Text {
                text: "Tidewright"
                color: Pel.ink
                font.pixelSize: Pel.titleSize
                font.weight: Font.DemiBold
                textFormat: Text.PlainText
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Text {
                Layout.fillWidth: true
                text: "Passerelle marine Wi-Fi de test"
                color: Pel.inkMuted
                font.pixelSize: Pel.captionSize
                textFormat: Text.PlainText
                elide: Text.ElideRight
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
        FaultChip {
            visible: text !== ""
            text: root.settings.faultsText
            onClicked: root.faultsRequested()
        }
        Dot {
            objectName: "statusDot"
            color: root.tone
            pulsing: root.simulator.isRunning
        }
        Text {
            text: !root.simulator.isRunning ? "À l'arrêt"
                                            : root.simulator.isSilent ? "Rien ne part" : "En émission"
            color: root.tone
            font.pixelSize: Pel.captionSize
            font.weight: Font.Medium
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: "État"
            Accessible.description: text
        }
    }
}
