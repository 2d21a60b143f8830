import QtQuick
import QtQuick.Layouts
import Tidewright

/// How much wind the boat gets in automatic mode.
ColumnLayout {
    id: root

    required property BoatSimulationEngine engine
    required property Settings settings
    readonly property ChoiceSetting preset: settings.choice("wind.preset")

    spacing: Pel.gap

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Vent"
    }
    ChoiceRow {
        setting: root.preset
    }
    ManualSliderRow {
        visible: root.preset.value === "custom"
        setting: root.settings.number("wind.low")
    }
    ManualSliderRow {
        visible: root.preset.value === "custom"
        setting: root.settings.number("wind.high")
    }
    Caption {
        objectName: "windCaption"
        Layout.fillWidth: true
        text: root.engine.windCaption
    }
}
