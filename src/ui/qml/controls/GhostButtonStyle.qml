pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// A button in the outlined look.
AbstractButton {
    id: root

    property string systemImage: ""

    implicitHeight: Pel.controlHeight
    implicitWidth: contentItem.implicitWidth + 2 * Pel.tight
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : Pel.disabledOpacity
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()

    background: Rectangle {
        radius: Pel.radius
        color: root.down ? Pel.line : root.hovered ? Pel.mix(Pel.panel, Pel.line, 0.5)
                                                   : "transparent"
        border.width: Pel.hair
        border.color: root.enabled ? Pel.mix(Pel.line, Pel.inkMuted, 0.5) : Pel.line

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
