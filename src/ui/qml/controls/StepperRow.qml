pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// One whole number: its label, its value as text, and a stepper. Reports what the user sets
/// through edited().
RowLayout {
    id: root

    required property string label
    required property string valueText
    required property int value
    required property int from
    required property int to
    required property int step

    signal edited(value: int)

    spacing: Pel.space
    opacity: enabled ? 1 : Pel.disabledOpacity

    Text {
        Layout.fillWidth: true
        text: root.label
        color: Pel.ink
        font.pixelSize: Pel.textSize
        textFormat: Text.PlainText
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Text {
        objectName: "valueText"
        text: root.valueText
        color: Pel.ink
        font.family: Pel.monoFamily
        font.pixelSize: Pel.textSize
        font.weight: Font.Medium
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
    SpinBox {
        id: stepper

        objectName: "stepper"
        implicitWidth: 2 * Pel.stepWidth + Pel.hair
        implicitHeight: Pel.controlHeight
        padding: 0
        from: root.from
        to: root.to
        stepSize: root.step
        value: root.value
        Accessible.name: root.label
        Accessible.description: root.valueText
        onValueChanged: if (value !== root.value) root.edited(value)
        Keys.onPressed: event => {
            switch (event.key) {
            case Qt.Key_PageUp:
                root.edited(Math.min(root.to, root.value + 10 * root.step));
                break;
            case Qt.Key_PageDown:
                root.edited(Math.max(root.from, root.value - 10 * root.step));
                break;
            case Qt.Key_Home:
                root.edited(root.from);
                break;
            case Qt.Key_End:
                root.edited(root.to);
                break;
            default:
                return;
            }
            event.accepted = true;
        }

        contentItem: Item {}
        background: Rectangle {
            radius: Pel.radius
            color: Pel.panelAlt
            border.width: Pel.hair
            border.color: Pel.outline

            Rectangle {
                anchors.centerIn: parent
                width: Pel.hair
                height: parent.height - 2 * Pel.gap
                color: Pel.line
            }
            FocusRing {
                active: stepper.visualFocus
            }
        }
        down.indicator: Item {
            implicitWidth: Pel.stepWidth
            height: parent.height

            Symbol {
                anchors.centerIn: parent
                name: "minus"
                color: stepper.value > stepper.from ? Pel.ink : Pel.line
            }
        }
        up.indicator: Item {
            x: parent.width - width
            implicitWidth: Pel.stepWidth
            height: parent.height

            Symbol {
                anchors.centerIn: parent
                name: "plus"
                color: stepper.value < stepper.to ? Pel.ink : Pel.line
            }
        }
    }
}
