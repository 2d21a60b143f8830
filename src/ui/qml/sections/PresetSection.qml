pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The commercial gateways that can be imitated in one step.
ColumnLayout {
    id: root

    required property SimulationConfig config

    spacing: Pel.gap
    Accessible.role: Accessible.Grouping
    Accessible.name: "Passerelle simulée"

    SectionLabel {
        text: "Passerelle simulée"
    }
    GridLayout {
        Layout.fillWidth: true
        columns: width >= Pel.sideBySideWidth ? 2 : 1
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        Repeater {
            model: root.config.presets

            PresetTile {
                required property int index
                required property string modelData

                Layout.fillWidth: true
                Layout.preferredWidth: 1
                text: root.config.presetNames[index]
                details: root.config.presetDetails[index]
                chosen: root.config.preset === modelData
                onClicked: root.config.apply(modelData)
            }
        }
    }
}
