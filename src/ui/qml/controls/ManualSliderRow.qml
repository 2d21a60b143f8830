import QtQuick
import QtQuick.Layouts
import Tidewright

/// One number: its label, its value with unit, which can be typed, and a small slider below.
ColumnLayout {
    id: root

    required property string label
    required property real value
    required property real from
    required property real to
    required property real step
    required property string unit
    required property string format
    readonly property string valueText: DialText.of(format, value, unit)

    signal edited(value: real)

    spacing: 0

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.gap

        Text {
            Layout.fillWidth: true
            text: root.label
            color: Pel.ink
            font.pixelSize: Pel.textSize
            textFormat: Text.PlainText
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        NumberField {
            id: number

            objectName: "number"
            Layout.rightMargin: -Pel.tight // its digits end where the slider does
            label: root.label + " (valeur)"
            value: root.value
            from: root.from
            to: root.to
            unit: root.unit
            format: root.format
            onEdited: value => root.edited(value)
        }
    }

    DialSlider {
        objectName: "slider"
        Layout.fillWidth: true
        from: root.from
        to: root.to
        stepSize: root.step
        setting: root.value
        valueText: root.valueText
        Accessible.name: root.label
        onEdited: value => root.edited(value)
    }
    Problem {
        Layout.fillWidth: true
        text: number.problem
    }
}
