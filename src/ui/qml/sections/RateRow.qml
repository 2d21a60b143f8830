import QtQuick
import QtQuick.Layouts
import Tidewright

/// One sentence family: whether it is sent, and how many times a second.
RowLayout {
    id: root

    required property string label
    required property bool sent
    required property real rate
    readonly property string rateText: DialText.of("%.1f", rate, "Hz")

    signal switched(value: bool)
    signal edited(value: real)

    spacing: Pel.gap

    SwitchRow {
        objectName: "switch"
        Layout.preferredWidth: Pel.familyWidth
        leading: true
        text: root.label
        setting: root.sent
        onEdited: value => root.switched(value)
    }
    DialSlider {
        objectName: "slider"
        Layout.fillWidth: true
        from: 0
        to: 20
        stepSize: 0.1
        setting: root.rate
        valueText: root.rateText
        Accessible.name: "Cadence : " + root.label
        onEdited: value => root.edited(value)
    }
    NumberField {
        objectName: "number"
        label: "Cadence : " + root.label + " (valeur)"
        value: root.rate
        from: 0
        to: 20
        unit: "Hz"
        format: "%.1f"
        hint: problem
        onEdited: value => root.edited(value)
    }
}
