import QtQuick
import QtQuick.Layouts
import Tidewright

/// Everything in the window: the cards, scrolling between the header and the start button.
Item {
    id: root

    required property BoatSimulationEngine engine
    required property Settings settings
    required property Actions actions
    required property GatewaySimulator simulator

    property bool showAdvanced: false
    property bool showConsole: false
    property bool copied: false

    /// Unfolds the panel of faults and brings it into sight, with the keyboard on it.
    function showFaults() {
        showConsole = true;
        pane.showGrown(log);
        Qt.callLater(() => {
            log.faults.forceActiveFocus(Qt.TabFocusReason);
            pane.show(log.faults);
        });
    }

    readonly property bool twoColumns: width >= Pel.twoColumnWidth

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        HeaderBar {
            Layout.fillWidth: true
            simulator: root.simulator
            settings: root.settings
            onFaultsRequested: root.showFaults()
        }

        ScrollPane {
            id: pane

            objectName: "scrollPane"
            Layout.fillWidth: true
            Layout.fillHeight: true

            GridLayout {
                width: parent.width
                columns: root.twoColumns ? 2 : 1
                columnSpacing: Pel.margin
                rowSpacing: Pel.margin

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.preferredWidth: 1
                    spacing: Pel.margin

                    ConnectionCard {
                        Layout.fillWidth: true
                        settings: root.settings
                        simulator: root.simulator
                        copied: root.copied
                        onCopiedChanged: root.copied = copied
                    }
                    InstrumentsCard {
                        Layout.fillWidth: true
                        Layout.fillHeight: true
                        engine: root.engine
                        simulator: root.simulator
                    }
                }
                SimulationCard {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    Layout.preferredWidth: 1
                    engine: root.engine
                    simulator: root.simulator
                    settings: root.settings
                    actions: root.actions
                }
                AdvancedCard {
                    id: advanced

                    Layout.fillWidth: true
                    Layout.columnSpan: root.twoColumns ? 2 : 1
                    settings: root.settings
                    simulator: root.simulator
                    open: root.showAdvanced
                    onToggled: {
                        root.showAdvanced = !root.showAdvanced;
                        pane.showGrown(root.showAdvanced ? advanced : null);
                    }
                }
                ConsoleCard {
                    id: log

                    Layout.fillWidth: true
                    Layout.columnSpan: root.twoColumns ? 2 : 1
                    settings: root.settings
                    actions: root.actions
                    simulator: root.simulator
                    viewHeight: pane.height
                    open: root.showConsole
                    onToggled: {
                        root.showConsole = !root.showConsole;
                        pane.showGrown(root.showConsole ? log : null);
                    }
                }
            }
        }

        StartBar {
            Layout.fillWidth: true
            simulator: root.simulator
        }
    }
}
