pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// A button in the filled look.
PlainButton {
    id: root

    property color tone: Pel.brand
    property string systemImage: ""

    implicitHeight: Pel.buttonHeight
    implicitWidth: contentItem.implicitWidth + 2 * Pel.margin
    opacity: enabled ? 1 : Pel.disabledOpacity

    background: Rectangle {
        radius: Pel.cardRadius
        color: root.down ? Pel.mix(root.tone, Pel.canvas, 0.2)
                         : root.hovered ? Pel.mix(root.tone, Pel.ink, 0.2) : root.tone

        FocusRing {
            radius: Pel.cardRadius
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
            color: Pel.onBrand
            filled: true
        }
        Text {
            text: root.text
            color: Pel.onBrand
            font.pixelSize: Pel.headingSize
            font.weight: Font.DemiBold
            textFormat: Text.PlainText
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
    }
}
