import QtQuick
import QtQuick.Layouts
import Tidewright

/// One number: its label, its value with unit, which can be typed, and a small slider below.
ColumnLayout {
    id: root

    required property NumberSetting setting

    spacing: 0
    Layout.fillWidth: true

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.gap

        Text {
            Layout.fillWidth: true
            text: root.setting.label
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
            setting: root.setting
        }
    }

    DialSlider {
        objectName: "slider"
        Layout.fillWidth: true
        setting: root.setting
    }
    Problem {
        Layout.fillWidth: true
        text: number.problem
    }
}
