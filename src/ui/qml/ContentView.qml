import QtQuick
import QtQuick.Layouts
import Tidewright

/// Everything in the window: the cards, scrolling between the header and the start button.
Item {
    id: root

    required property BoatSimulationEngine engine
    required property SimulationConfig config
    required property FailureInjection failure
    required property GatewaySimulator simulator

    property bool showAdvanced: false
    property bool showConsole: false
    property bool copied: false

    readonly property bool twoColumns: width >= Pel.twoColumnWidth

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        HeaderBar {
            Layout.fillWidth: true
            simulator: root.simulator
        }

        ScrollPane {
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
                    Layout.alignment: Qt.AlignTop
                    spacing: Pel.margin

                    ConnectionCard {
                        Layout.fillWidth: true
                        config: root.config
                        simulator: root.simulator
                        copied: root.copied
                        onCopiedChanged: root.copied = copied
                    }
                    InstrumentsCard {
                        Layout.fillWidth: true
                        engine: root.engine
                        simulator: root.simulator
                    }
                }
                SimulationCard {
                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignTop
                    engine: root.engine
                    simulator: root.simulator
                }
                AdvancedCard {
                    Layout.fillWidth: true
                    Layout.columnSpan: root.twoColumns ? 2 : 1
                    config: root.config
                    simulator: root.simulator
                    open: root.showAdvanced
                    onToggled: root.showAdvanced = !root.showAdvanced
                }
                ConsoleCard {
                    Layout.fillWidth: true
                    Layout.columnSpan: root.twoColumns ? 2 : 1
                    failure: root.failure
                    simulator: root.simulator
                    open: root.showConsole
                    onToggled: root.showConsole = !root.showConsole
                }
            }
        }

        StartBar {
            Layout.fillWidth: true
            simulator: root.simulator
        }
    }
}
