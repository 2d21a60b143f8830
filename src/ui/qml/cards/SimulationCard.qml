import QtQuick
import QtQuick.Layouts
import Tidewright

/// Who steers the boat, and by what settings.
Card {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator

    title: "Simulation"
    systemImage: "slider.horizontal.3"

    SegmentedPicker {
        Layout.fillWidth: true
        label: "Mode"
        values: root.engine.modes
        labels: root.engine.modeLabels
        current: root.engine.mode
        onPicked: value => root.engine.mode = value
    }

    Loader {
        id: section

        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        sourceComponent: {
            switch (root.engine.mode) {
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
        }
    }
    Component {
        id: manual

        ManualSection {
            targets: root.engine.manual
        }
    }
    Component {
        id: anchor

        AnchorSection {
            settings: root.engine.anchorSettings
        }
    }
}
