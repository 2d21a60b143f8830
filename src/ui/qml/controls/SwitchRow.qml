pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Tidewright

/// One yes or no: its label, and a switch at the far end, or before it where `leading`.
Switch {
    id: root

    required property FlagSetting setting
    property bool leading: false

    Layout.fillWidth: true
    text: setting.label
    enabled: !setting.locked
    implicitHeight: Pel.controlHeight
    padding: 0
    spacing: Pel.gap
    checked: setting.value
    opacity: enabled ? 1 : Pel.disabledOpacity
    font.pixelSize: Pel.textSize
    Accessible.name: text
    Keys.onReturnPressed: toggle()
    Keys.onEnterPressed: toggle()
    onCheckedChanged: if (checked !== setting.value) setting.value = checked

    indicator: SwitchMark {
        x: root.leading ? 0 : root.width - width
        y: Math.round((root.height - height) / 2)
        on: root.checked
        focused: root.visualFocus
    }

    contentItem: Text {
        leftPadding: root.leading ? Pel.switchWidth + Pel.gap : 0
        rightPadding: root.leading ? 0 : Pel.switchWidth + Pel.gap
        text: root.text
        color: Pel.ink
        font: root.font
        textFormat: Text.PlainText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
