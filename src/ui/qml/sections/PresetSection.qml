pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The commercial gateways that can be imitated in one step. One stop for the keyboard; arrows move
/// between them, without applying any.
ColumnLayout {
    id: root

    required property SimulationConfig config
    required property int columns
    property int reached: Math.max(0, config.presets.indexOf(config.preset)) // by the keyboard

    function reach(index: int) {
        if (index < 0 || index >= tiles.count)
            return;
        reached = index;
        tiles.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: Pel.gap
    Accessible.role: Accessible.Grouping
    Accessible.name: "Passerelle simulée"
    Keys.onLeftPressed: reach(reached - 1)
    Keys.onRightPressed: reach(reached + 1)
    Keys.onUpPressed: reach(reached - columns)
    Keys.onDownPressed: reach(reached + columns)

    SectionLabel {
        text: "Passerelle simulée"
    }
    GridLayout {
        Layout.fillWidth: true
        columns: root.columns
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        Repeater {
            id: tiles

            model: root.config.presets

            PresetTile {
                required property int index
                required property string modelData

                Layout.fillWidth: true
                Layout.preferredWidth: 1
                focusPolicy: index === root.reached || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                text: root.config.presetNames[index]
                details: root.config.presetDetails[index]
                chosen: root.config.preset === modelData
                modified: chosen && root.config.presetModified
                onActiveFocusChanged: if (activeFocus) root.reached = index
                onClicked: root.config.apply(modelData)
            }
        }
    }
}
