import QtQuick
import Tidewright

/// A port number to type; blanks around it are not wrong.
EntryField {
    id: root

    required property NumberSetting setting

    label: setting.label
    entry: setting.text
    check: text => isNaN(setting.read(text)) ? "Un port va de " + setting.range + "," : ""
    enabled: !setting.locked
    implicitWidth: Pel.portWidth
    font.family: Pel.monoFamily
    inputMethodHints: Qt.ImhDigitsOnly
    onEntered: text => setting.value = setting.read(text)
}
