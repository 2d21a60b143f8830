pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The wind on a rose with the bow up: the apparent one in the middle and as the large hand, the true
/// one as the broad one; both in words beneath or, where it is lying, beside.
Rectangle {
    id: root

    required property BoatSimulationEngine engine
    property bool lying: false

    implicitWidth: Pel.dialWidth
    implicitHeight: lying ? Pel.dialHeight : Pel.pictureHeight
    radius: Pel.radius
    color: Pel.panelAlt
    border.width: Pel.hair
    border.color: Pel.line

    component Legend: GridLayout {
        id: legend

        required property string label
        required property string value
        required property color tone

        columns: 2
        columnSpacing: Pel.gap
        rowSpacing: 0

        Rectangle {
            Layout.preferredWidth: Pel.gap
            Layout.preferredHeight: Pel.gap
            radius: Pel.tight
            color: legend.tone
        }
        Text {
            text: legend.label
            color: Pel.inkMuted
            font.pixelSize: Pel.labelSize
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        Text {
            Layout.column: 1
            Layout.row: 1
            text: legend.value
            color: Pel.ink
            font.pixelSize: Pel.captionSize
            font.weight: Font.Medium
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
    }

    GridLayout {
        anchors.fill: parent
        anchors.margins: Pel.space
        columns: root.lying ? 2 : 1
        columnSpacing: Pel.wide
        rowSpacing: Pel.gap

        WindDialPicture {
            id: picture

            objectName: "dial"
            Layout.fillWidth: !root.lying
            Layout.fillHeight: true
            Layout.preferredWidth: height
            engine: root.engine
            water: Pel.panelAlt
            line: Pel.line
            ink: Pel.ink
            muted: Pel.inkMuted
            apparent: Pel.brand
            real: Pel.cyan
            starboard: Pel.ok
            port: Pel.danger
            digits: Pel.monoFamily
            textSize: Pel.labelSize
            Accessible.role: Accessible.Graphic
            Accessible.name: "Girouette"
            Accessible.description: description
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: root.lying ? Pel.space : Pel.tight

            Legend {
                label: "Apparent"
                value: picture.apparentText
                tone: Pel.brand
            }
            Legend {
                label: "Réel"
                value: picture.trueText
                tone: Pel.cyan
            }
        }
    }
}
