import QtQuick
import Tidewright

/// A number with its unit, to be typed, with a point or a comma. Reports it through edited().
EntryField {
    id: root

    required property real value
    required property real from
    required property real to
    required property string unit
    required property string format

    signal edited(value: real)

    plain: true
    setting: DialText.of(format, value, unit)
    check: text => {
        const number = DialText.number(text, unit);
        if (number >= from && number <= to)
            return "";
        return "Un nombre de " + DialText.of(format, from, "").trim() + " à " + DialText.of(format, to, unit);
    }
    implicitWidth: Math.max(Pel.numberWidth, Math.ceil(contentWidth) + leftPadding + rightPadding + Pel.tight)
    implicitHeight: Pel.numberHeight
    horizontalAlignment: TextInput.AlignRight
    font.family: Pel.monoFamily
    font.weight: Font.Medium
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    onEntered: text => {
        if (text !== setting)
            edited(DialText.number(text, unit));
    }
}
