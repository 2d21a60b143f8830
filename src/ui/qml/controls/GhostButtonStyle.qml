pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// A button in the outlined look.
PlainButton {
    id: root

    property string systemImage: ""
    property bool opaque: false // stands on something else

    implicitHeight: Pel.controlHeight
    implicitWidth: contentItem.implicitWidth + 2 * Pel.tight
    opacity: enabled ? 1 : Pel.disabledOpacity

    background: Rectangle {
        radius: Pel.radius
        color: root.down ? Pel.line : root.hovered ? Pel.mix(Pel.panel, Pel.line, 0.5)
                                                   : root.opaque ? Pel.panel : "transparent"
        border.width: Pel.hair
        border.color: root.enabled ? Pel.outline : Pel.line

        FocusRing {
            active: root.visualFocus
        }
    }
    contentItem: RowLayout {
        spacing: Pel.gap

        Item {
            Layout.fillWidth: true
        }
        Symbol {
            visible: root.systemImage !== ""
            name: root.systemImage
            color: Pel.ink
        }
        Text {
            text: root.text
            color: Pel.ink
            font.pixelSize: Pel.textSize
            font.weight: Font.Medium
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
    }
}
