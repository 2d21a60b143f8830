pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// One commercial gateway, to be pressed; Space or Enter apply it, also again.
RadioButton {
    id: root

    required property string details
    required property bool chosen
    required property bool modified // since it was chosen

    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    horizontalPadding: Pel.space
    verticalPadding: Pel.gap
    checked: chosen
    opacity: enabled ? 1 : Pel.disabledOpacity
    Accessible.name: text
    Accessible.description: modified ? details + " · modifié" : details
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    indicator: null
    background: Rectangle {
        radius: Pel.radius
        color: root.hovered ? Pel.mix(Pel.panelAlt, Pel.line, 0.5) : Pel.panelAlt
        border.width: root.chosen ? Pel.focusWidth : Pel.hair
        border.color: root.chosen ? Pel.brand : Pel.line

        FocusRing {
            active: root.visualFocus
        }
    }
    contentItem: ColumnLayout {
        spacing: 0

        RowLayout {
            spacing: Pel.gap

            Text {
                Layout.fillWidth: true
                text: root.text
                color: Pel.ink
                font.pixelSize: Pel.textSize
                font.weight: Font.Medium
                textFormat: Text.PlainText
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            Text {
                visible: root.modified
                text: "modifié"
                color: Pel.warn
                font.pixelSize: Pel.labelSize
                textFormat: Text.PlainText
                Accessible.ignored: true
            }
        }
        Text {
            Layout.fillWidth: true
            text: root.details
            color: Pel.inkMuted
            font.pixelSize: Pel.labelSize
            textFormat: Text.PlainText
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
