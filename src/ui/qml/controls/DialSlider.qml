pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A small slider that stays on its steps. Reports what the user sets through edited().
Slider {
    id: root

    required property real setting
    property string valueText: ""

    signal edited(value: real)

    implicitHeight: Pel.knobSize + Pel.gap
    padding: 0
    value: setting
    snapMode: Slider.SnapAlways
    opacity: enabled ? 1 : Pel.disabledOpacity
    Accessible.description: valueText
    onValueChanged: if (value !== setting) edited(value)

    background: Item {
        Rectangle {
            y: Math.round((parent.height - height) / 2)
            width: parent.width
            height: Pel.trackThickness
            radius: height / 2
            color: Pel.line

            Rectangle {
                width: root.handle.x + root.handle.width / 2
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
