import QtQuick
import QtQuick.Layouts
import Tidewright

/// How much wind the boat gets in automatic mode.
ColumnLayout {
    id: root

    required property SailingEnvironment environment

    spacing: Pel.gap

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Vent"
    }
    SegmentedPicker {
        Layout.fillWidth: true
        label: "Force du vent"
        values: root.environment.windPresets
        labels: root.environment.windPresetLabels
        current: root.environment.windPreset
        onPicked: value => root.environment.windPreset = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        visible: root.environment.windPreset === "custom"
        label: "Vent mini"
        value: root.environment.customMin
        from: 3
        to: 34
        step: 1
        unit: "nd"
        format: "%.0f"
        onEdited: value => root.environment.customMin = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        visible: root.environment.windPreset === "custom"
        label: "Vent maxi"
        value: root.environment.customMax
        from: 4
        to: 35
        step: 1
        unit: "nd"
        format: "%.0f"
        onEdited: value => root.environment.customMax = value
    }
    Caption {
        objectName: "windCaption"
        Layout.fillWidth: true
        text: root.environment.windCaption
    }
}
