import QtQuick
import Tidewright

/// One line of the log.
Rectangle {
    id: root

    required property double number
    required property string time
    required property string transport
    required property string text
    required property bool selected

    function tone(transport: string): color {
        switch (transport) {
        case "TCP":
            return Pel.brand;
        case "UDP":
            return Pel.cyan;
        case "SYS":
            return Pel.warn;
        default:
            return Pel.inkMuted;
        }
    }

    component Part: Text {
        anchors.verticalCenter: parent.verticalCenter
        font.family: Pel.monoFamily
        font.pixelSize: Pel.consoleSize
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    height: Pel.consoleRowHeight
    color: selected ? Pel.line : "transparent"
    Accessible.role: Accessible.ListItem
    Accessible.name: time + " " + transport + " " + text
    Accessible.selectable: true
    Accessible.selected: selected
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    Part {
        id: clock

        text: root.time
        color: Pel.inkMuted
    }
    Part {
        id: column

        anchors.left: clock.right
        anchors.leftMargin: Pel.gap
        width: Pel.transportWidth
        text: root.transport
        color: root.tone(root.transport)
    }
    Part {
        anchors.left: column.right
        anchors.right: parent.right
        anchors.leftMargin: Pel.gap
        text: root.text
        color: Pel.ink
        elide: Text.ElideRight
    }
}
