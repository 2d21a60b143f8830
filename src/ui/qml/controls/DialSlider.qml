pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A small slider that stays on its steps: arrows move it by one, Page Up and Page Down by ten, Home
/// and End to the ends.
Slider {
    id: root

    required property NumberSetting setting

    implicitHeight: Pel.knobSize + Pel.gap
    padding: 0
    from: setting.from
    to: setting.to
    stepSize: setting.step
    value: setting.value
    enabled: !setting.locked
    snapMode: Slider.SnapAlways
    opacity: enabled ? 1 : Pel.disabledOpacity
    Accessible.name: setting.label
    Accessible.description: setting.text
    onValueChanged: if (value !== setting.value) setting.value = value
    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_PageUp:
            setting.value = Math.min(to, setting.value + 10 * stepSize);
            break;
        case Qt.Key_PageDown:
            setting.value = Math.max(from, setting.value - 10 * stepSize);
            break;
        case Qt.Key_Home:
            setting.value = from;
            break;
        case Qt.Key_End:
            setting.value = to;
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    background: Item {
        Rectangle {
            y: Math.round((parent.height - height) / 2)
            width: parent.width
            height: Pel.trackThickness
            radius: height / 2
            color: Pel.line

            Rectangle { // from zero, or from the end nearest to it
                readonly property real zero: root.from < 0 && root.to > 0 ? -root.from / (root.to - root.from) : 0
                readonly property real origin: root.handle.width / 2 + zero * (root.width - root.handle.width)
                readonly property real knob: root.handle.x + root.handle.width / 2

                x: zero > 0 ? Math.min(origin, knob) : 0
                width: zero > 0 ? Math.abs(knob - origin) : knob
                height: parent.height
                radius: height / 2
                color: Pel.brand
            }
        }
    }

    handle: Rectangle {
        x: Math.round(root.visualPosition * (root.width - width))
        y: Math.round((root.height - height) / 2)
        width: Pel.knobSize
        height: Pel.knobSize
        radius: width / 2
        color: root.pressed ? Pel.brand : Pel.ink
        border.width: Pel.focusWidth
        border.color: Pel.panel

        FocusRing {
            radius: width / 2
            active: root.visualFocus
        }
    }
}
