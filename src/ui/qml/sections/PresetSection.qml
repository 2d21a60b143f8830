pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The commercial gateways that can be imitated in one step. One stop for the keyboard; arrows move
/// between them, without applying any.
ColumnLayout {
    id: root

    required property Settings settings
    required property int columns
    readonly property ChoiceSetting preset: settings.choice("network.preset")
    property int reached: Math.max(0, preset.values.indexOf(preset.value)) // by the keyboard

    function reach(index: int) {
        if (index < 0 || index >= tiles.count)
            return;
        reached = index;
        tiles.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: Pel.gap
    enabled: !preset.locked
    Accessible.role: Accessible.Grouping
    Accessible.name: preset.label
    Keys.onLeftPressed: reach(reached - 1)
    Keys.onRightPressed: reach(reached + 1)
    Keys.onUpPressed: reach(reached - columns)
    Keys.onDownPressed: reach(reached + columns)

    SectionLabel {
        text: root.preset.label
    }
    GridLayout {
        Layout.fillWidth: true
        columns: root.columns
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        Repeater {
            id: tiles

            model: root.preset.values

            PresetTile {
                required property int index
                required property string modelData

                Layout.fillWidth: true
                Layout.preferredWidth: 1
                focusPolicy: index === root.reached || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
                text: root.preset.labels[index]
                details: root.preset.details[index]
                chosen: root.preset.value === modelData
                modified: chosen && root.settings.presetModified
                onActiveFocusChanged: if (activeFocus) root.reached = index
                onClicked: root.preset.value = modelData
            }
        }
    }
}
