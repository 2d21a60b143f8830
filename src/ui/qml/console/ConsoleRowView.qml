import QtQuick
import Tidewright

/// One row of the log.
Item {
    id: root

    required property ConsoleModel model
    required property real row
    required property int columns // another number wraps the lines anew
    required property real digitWidth
    readonly property ConsoleSelection selection: model.selection
    readonly property bool shown: row >= model.begin && row < model.end
    readonly property var content: columns > 0 && shown ? model.row(row) : null
    readonly property bool touched: content !== null && !selection.isEmpty && content.number >= selection.first && content.number <= selection.last
    readonly property color transportColor: tone(content?.transport ?? "")

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
        font.family: Pel.monoFamily
        font.pixelSize: Pel.consoleSize
        lineHeightMode: Text.FixedHeight
        lineHeight: Pel.consoleRowHeight
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    visible: shown
    Accessible.role: Accessible.ListItem
    Accessible.ignored: !content || content.whole === ""
    Accessible.name: content ? content.time + " " + content.transport + " " + content.whole : ""
    Accessible.selectable: true
    Accessible.selected: touched

    Rectangle {
        readonly property int from: Math.max(0, root.selection.firstColumn - (root.content?.from ?? 0))
        readonly property int to: Math.min(root.content?.text.length ?? 0, root.selection.lastColumn - (root.content?.from ?? 0))
        readonly property bool whole: from === 0 && root.selection.lastColumn > 1e6

        visible: root.touched && (whole || to > from)
        x: whole ? 0 : Pel.consoleTextX + from * root.digitWidth
        width: whole ? root.width : (to - from) * root.digitWidth
        height: root.height
        color: Pel.selection
    }
    Part {
        text: root.content?.time ?? ""
        color: Pel.inkMuted
    }
    Part {
        objectName: "transport"
        x: Pel.consoleTransportX
        text: root.content?.transport ?? ""
        color: root.transportColor
    }
    Part {
        objectName: "text"
        x: Pel.consoleTextX
        text: root.content?.text ?? ""
        color: root.content && root.content.number > 0 ? Pel.ink : Pel.inkMuted
    }
}
