pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A port number to type. What is no port shows in the danger colour while it is typed, and gives
/// way to the last value when the field is left.
TextField {
    id: root

    required property string label
    required property string setting
    required property bool valid

    signal entered(text: string)

    function showSetting() {
        text = Qt.binding(() => root.setting);
    }

    implicitWidth: Pel.portWidth
    implicitHeight: Pel.controlHeight
    leftPadding: Pel.space
    rightPadding: Pel.space
    text: setting
    color: valid ? Pel.ink : Pel.danger
    selectionColor: Pel.brand
    selectedTextColor: Pel.onBrand
    font.family: Pel.monoFamily
    font.pixelSize: Pel.textSize
    opacity: enabled ? 1 : Pel.disabledOpacity
    selectByMouse: true
    inputMethodHints: Qt.ImhDigitsOnly
    Accessible.name: label
    onEditingFinished: {
        entered(text);
        showSetting();
    }
    Keys.onEscapePressed: showSetting()

    background: Rectangle {
        radius: Pel.radius
        color: Pel.panelAlt
        border.width: Pel.hair
        border.color: Pel.mix(Pel.line, Pel.inkMuted, 0.5)

        FocusRing {
            active: root.activeFocus
        }
    }
}
