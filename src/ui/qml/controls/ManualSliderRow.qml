import QtQuick
import QtQuick.Layouts
import Tidewright

/// One number: its label, its value with unit, and a small slider below.
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
}
