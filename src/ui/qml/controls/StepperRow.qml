pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// One whole number: its label, its value as text, and a stepper.
RowLayout {
    id: root

    required property NumberSetting setting

    Layout.fillWidth: true
    spacing: Pel.space
    enabled: !setting.locked
    opacity: enabled ? 1 : Pel.disabledOpacity

    Text {
        Layout.fillWidth: true
        text: root.setting.label
        color: Pel.ink
        font.pixelSize: Pel.textSize
        textFormat: Text.PlainText
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Text {
        objectName: "valueText"
        text: root.setting.text
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
        from: root.setting.from
        to: root.setting.to
        stepSize: root.setting.step
        value: root.setting.value
        Accessible.name: root.setting.label
        Accessible.description: root.setting.text
        onValueChanged: if (value !== root.setting.value) root.setting.value = value
        Keys.onPressed: event => {
            switch (event.key) {
            case Qt.Key_PageUp:
                root.setting.value = Math.min(to, value + 10 * stepSize);
                break;
            case Qt.Key_PageDown:
                root.setting.value = Math.max(from, value - 10 * stepSize);
                break;
            case Qt.Key_Home:
                root.setting.value = from;
                break;
            case Qt.Key_End:
                root.setting.value = to;
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
