import QtQuick
import QtQuick.Layouts
import Tidewright

/// Who steers the boat, and by what settings.
Card {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator
    required property Settings settings
    required property Actions actions
    readonly property ChoiceSetting mode: settings.choice("boat.mode")

    title: "Simulation"
    systemImage: "slider.horizontal.3"

    ChoiceRow {
        setting: root.mode
    }

    Loader {
        id: section

        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        sourceComponent: {
            switch (root.mode.value) {
            case "auto":
                return auto;
            case "manual":
                return manual;
            default:
                return anchor;
            }
        }
    }

    Item {
        Layout.fillHeight: true
    }

    // Bound components cannot be instantiated by a Loader here.
    // qmllint disable unqualified
    Component {
        id: auto

        AutoSection {
            engine: root.engine
            simulator: root.simulator
            settings: root.settings
            actions: root.actions
        }
    }
    Component {
        id: manual

        ManualSection {
            settings: root.settings
        }
    }
    Component {
        id: anchor

        AnchorSection {
            settings: root.settings
        }
    }
}
