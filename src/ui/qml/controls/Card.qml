import QtQuick
import QtQuick.Layouts
import Tidewright

/// A rounded panel with an optional title row: a symbol in the accent colour, the title, and a note
/// at the far end.
Rectangle {
    id: root

    property string title: ""
    property string systemImage: ""
    property color accent: Pel.brand
    property string note: ""
    default property alias content: body.data

    implicitWidth: frame.implicitWidth + 2 * Pel.margin
    implicitHeight: frame.implicitHeight + 2 * Pel.margin
    radius: Pel.cardRadius
    color: Pel.panel
    border.width: Pel.hair
    border.color: Pel.line
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    ColumnLayout {
        id: frame

        anchors.fill: parent
        anchors.margins: Pel.margin
        spacing: Pel.space

        RowLayout {
            visible: root.title !== ""
            spacing: Pel.gap

            Symbol {
                visible: root.systemImage !== ""
                name: root.systemImage
                color: root.accent
            }
            Text {
                Layout.fillWidth: true
                text: root.title
                color: Pel.ink
                font.pixelSize: Pel.headingSize
                font.weight: Font.DemiBold
                textFormat: Text.PlainText
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Text {
                visible: root.note !== ""
                text: root.note
                color: Pel.inkMuted
                font.family: Pel.monoFamily
                font.pixelSize: Pel.captionSize
                textFormat: Text.PlainText
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }

        ColumnLayout {
            id: body

            Layout.fillHeight: true
            Layout.alignment: Qt.AlignTop
            spacing: Pel.space
        }
    }
}
