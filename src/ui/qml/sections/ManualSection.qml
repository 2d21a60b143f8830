import QtQuick
import QtQuick.Layouts
import Tidewright

/// Manual mode: every value dialled in by hand.
ColumnLayout {
    id: root

    required property ManualTargets targets

    spacing: Pel.gap

    ManualSliderRow {
        Layout.fillWidth: true
        label: "Force du vent"
        value: root.targets.windSpeed
        from: 0
        to: 50
        step: 1
        unit: "nd"
        format: "%.0f"
        onEdited: value => root.targets.windSpeed = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Angle du vent"
        value: root.targets.windAngle
        from: -180
        to: 180
        step: 1
        unit: "°"
        format: "%.0f"
        onEdited: value => root.targets.windAngle = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Vitesse fond"
        value: root.targets.sog
        from: 0
        to: 20
        step: 0.1
        unit: "nd"
        format: "%.1f"
        onEdited: value => root.targets.sog = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Cap"
        value: root.targets.heading
        from: 0
        to: 359
        step: 1
        unit: "°"
        format: "%.0f"
        onEdited: value => root.targets.heading = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Profondeur"
        value: root.targets.depth
        from: 1
        to: 100
        step: 0.5
        unit: "m"
        format: "%.1f"
        onEdited: value => root.targets.depth = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Température de l'eau"
        value: root.targets.waterTemp
        from: 0
        to: 40
        step: 0.5
        unit: "°C"
        format: "%.1f"
        onEdited: value => root.targets.waterTemp = value
    }
}
