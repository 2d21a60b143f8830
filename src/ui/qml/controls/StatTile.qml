pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// One live instrument: its label, its value in digits of one width, and its unit; where there is a
/// second value, it stands in the tile's other half.
Rectangle {
    id: root

    required property string label
    required property string value
    property string unit: ""
    property color tone: Pel.ink
    property string secondValue: ""
    property string secondUnit: ""

    implicitWidth: column.implicitWidth + 2 * Pel.space
    implicitHeight: Pel.tileHeight
    radius: Pel.radius
    color: Pel.panelAlt
    border.width: Pel.hair
    border.color: Pel.line
    Accessible.role: Accessible.StaticText
    Accessible.name: label
    Accessible.description: (value + " " + unit + " " + secondValue + " " + secondUnit).trim()

    component Quantity: Row {
        id: quantity

        required property string value
        required property string unit
        readonly property bool degrees: unit.startsWith("°")

        spacing: Pel.tight

        Text {
            id: digits

            text: quantity.value + (quantity.degrees ? "°" : "") // as high as the digits
            color: root.tone
            font.family: Pel.monoFamily
            font.pixelSize: Pel.valueSize
            font.weight: Font.Medium
            textFormat: Text.PlainText
        }
        Text {
            anchors.baseline: digits.baseline
            text: quantity.degrees ? quantity.unit.slice(1).trim() : quantity.unit
            color: Pel.inkMuted
            font.pixelSize: Pel.captionSize
            textFormat: Text.PlainText
        }
    }

    ColumnLayout {
        id: column

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Pel.space
        anchors.rightMargin: Pel.space
        spacing: 0

        Text {
            Layout.fillWidth: true
            text: root.label
            color: Pel.inkMuted
            font.pixelSize: Pel.labelSize
            textFormat: Text.PlainText
            elide: Text.ElideRight
        }
        Item {
            Layout.fillWidth: true
            implicitHeight: first.implicitHeight

            Quantity {
                id: first

                value: root.value
                unit: root.unit
            }
            Quantity {
                x: Math.round(parent.width * 0.42)
                visible: root.secondValue !== ""
                value: root.secondValue
                unit: root.secondUnit
            }
        }
    }
}
