pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// A card that unfolds. What it holds is made when it is first opened.
Card {
    id: root

    required property string heading
    required property string image
    required property bool open
    required property Component section

    readonly property Item sectionItem: loader.item

    /// How wide what unfolds may be: known before it is, and no layout waits for itself.
    readonly property int contentWidth: width - 2 * Pel.margin

    signal toggled()

    PlainButton {
        id: header

        objectName: "disclosure"
        Layout.fillWidth: true
        implicitHeight: Pel.symbolSize + Pel.tight
        text: root.heading
        Accessible.description: root.open ? "déplié" : "replié"
        onClicked: root.toggled()

        contentItem: RowLayout {
            spacing: Pel.gap

            Symbol {
                name: root.image
                color: Pel.brand
            }
            Text {
                Layout.fillWidth: true
                text: header.text
                color: Pel.ink
                font.pixelSize: Pel.headingSize
                font.weight: Font.DemiBold
                textFormat: Text.PlainText
                Accessible.ignored: true
            }
            Symbol {
                name: "chevron.down"
                rotation: root.open ? 180 : 0
                color: header.hovered ? Pel.ink : Pel.inkMuted
            }
        }
        background: Item {
            FocusRing {
                anchors.margins: -Pel.tight
                active: header.visualFocus
            }
        }
    }

    Loader {
        id: loader

        Layout.fillWidth: true
        visible: root.open
        active: root.open
        sourceComponent: root.section
    }
}
