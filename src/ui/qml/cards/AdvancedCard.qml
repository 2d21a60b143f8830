import QtQuick
import QtQuick.Layouts
import Tidewright

/// The settings that most people leave alone.
Disclosure {
    id: root

    required property SimulationConfig config
    required property GatewaySimulator simulator
    readonly property int columns: contentWidth >= Pel.twoColumnWidth - 4 * Pel.margin ? 2 : 1
    readonly property int columnWidth: (contentWidth - (columns - 1) * 2 * Pel.margin) / columns

    heading: "Réglages avancés"
    image: "gearshape"

    // Bound components cannot be instantiated by a Loader here.
    // qmllint disable unqualified
    section: ColumnLayout {
        spacing: Pel.margin

        Caption {
            objectName: "lockedReason"
            Layout.fillWidth: true
            visible: root.simulator.isRunning
            text: "Arrêtez l'émission pour changer de passerelle, de ports ou de cadences."
            color: Pel.warn
        }

        GridLayout {
            Layout.fillWidth: true
            columns: root.columns
            columnSpacing: 2 * Pel.margin
            rowSpacing: Pel.margin

            ColumnLayout {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                spacing: Pel.margin

                PresetSection {
                    Layout.fillWidth: true
                    enabled: !root.simulator.isRunning
                    config: root.config
                    columns: root.columnWidth >= Pel.sideBySideWidth ? 2 : 1
                }
                OutputSection {
                    Layout.fillWidth: true
                    config: root.config
                    locked: root.simulator.isRunning
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                spacing: Pel.margin

                RateSection {
                    Layout.fillWidth: true
                    enabled: !root.simulator.isRunning
                    config: root.config
                }
                StepperRow {
                    Layout.fillWidth: true
                    label: "Cibles AIS"
                    valueText: root.config.aisTargetCount
                    value: root.config.aisTargetCount
                    from: 0
                    to: 100
                    step: 1
                    onEdited: value => {
                        root.config.aisTargetCount = value;
                        root.simulator.regenerateAIS();
                    }
                }
            }
        }
    }
}
