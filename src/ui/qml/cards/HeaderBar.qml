import QtQuick
import QtQuick.Layouts
import Tidewright

/// The program's name, and whether it is emitting.
Rectangle {
    id: root

    required property GatewaySimulator simulator

    implicitHeight: Pel.headerHeight
    color: Pel.panelAlt

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: Pel.hair
        color: Pel.line
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Pel.margin
        anchors.rightMargin: Pel.margin
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
        Dot {
            objectName: "statusDot"
            color: root.simulator.isRunning ? Pel.ok : Pel.inkMuted
            pulsing: root.simulator.isRunning
        }
        Text {
            text: root.simulator.isRunning ? "En émission" : "À l'arrêt"
            color: root.simulator.isRunning ? Pel.ok : Pel.inkMuted
            font.pixelSize: Pel.captionSize
            font.weight: Font.Medium
            textFormat: Text.PlainText
            Accessible.role: Accessible.StaticText
            Accessible.name: "État"
            Accessible.description: text
        }
    }
}
