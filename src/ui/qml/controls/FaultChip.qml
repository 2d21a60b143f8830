import QtQuick
import Tidewright

/// Says how many faults are on; pressed, it leads to them.
PlainButton {
    id: root

    implicitHeight: Pel.chipHeight
    horizontalPadding: Pel.space
    hint: "Voir les pannes"

    background: Rectangle {
        radius: height / 2
        color: root.down ? Pel.line : root.hovered ? Pel.mix(Pel.panel, Pel.line, 0.5) : Pel.panel
        border.width: Pel.hair
        border.color: Pel.warn

        FocusRing {
            radius: parent.radius + Pel.focusWidth
            active: root.visualFocus
        }
    }
    contentItem: Text {
        text: root.text
        color: Pel.warn
        font.pixelSize: Pel.captionSize
        font.weight: Font.Medium
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
