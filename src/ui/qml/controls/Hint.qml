import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A few words beside its parent, while the pointer or the keyboard rests on it. Made when it is
/// first shown: most never are.
Loader {
    id: root

    required property string text
    required property bool shown

    active: shown && text !== ""
    anchors.fill: parent
    // Bound components cannot be instantiated by a Loader here.
    // qmllint disable unqualified
    sourceComponent: Item {
        ToolTip {
            id: words

            visible: true
            delay: Pel.hintDelay
            y: parent.height + Pel.tight
            padding: Pel.gap
            font.pixelSize: Pel.captionSize

            contentItem: Text {
                text: root.text
                color: Pel.ink
                font: words.font
                textFormat: Text.PlainText
                Accessible.ignored: true
            }
            background: Rectangle {
                radius: Pel.radius
                color: Pel.panelAlt
                border.width: Pel.hair
                border.color: Pel.outline
            }
        }
    }
}
