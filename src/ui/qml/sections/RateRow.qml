import QtQuick
import QtQuick.Layouts
import Tidewright

/// One sentence family: whether it is sent, and how many times a second.
RowLayout {
    id: root

    required property FlagSetting sensor
    required property NumberSetting rate

    Layout.fillWidth: true
    spacing: Pel.gap

    SwitchRow {
        objectName: "switch"
        Layout.fillWidth: false
        Layout.preferredWidth: Pel.familyWidth
        leading: true
        setting: root.sensor
        text: root.rate.label
    }
    DialSlider {
        objectName: "slider"
        Layout.fillWidth: true
        setting: root.rate
        Accessible.name: "Cadence : " + root.rate.label
    }
    NumberField {
        objectName: "number"
        setting: root.rate
        label: "Cadence : " + root.rate.label + " (valeur)"
        enabled: !root.rate.locked
        hint: problem
    }
}
