import QtQuick
import Tidewright

/// A number with its unit, to be typed, with a point or a comma.
EntryField {
    id: root

    required property NumberSetting setting

    plain: true
    label: setting.label + " (valeur)"
    entry: setting.text
    check: text => isNaN(setting.read(text)) ? "Un nombre de " + setting.range : ""
    implicitWidth: Math.max(Pel.numberWidth, Math.ceil(contentWidth) + leftPadding + rightPadding + Pel.tight)
    implicitHeight: Pel.numberHeight
    horizontalAlignment: TextInput.AlignRight
    font.family: Pel.monoFamily
    font.weight: Font.Medium
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    onEntered: text => {
        if (text !== entry)
            setting.value = setting.read(text);
    }
}
