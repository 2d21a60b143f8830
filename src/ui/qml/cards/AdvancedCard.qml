import QtQuick
import QtQuick.Layouts
import Tidewright

/// The settings that most people leave alone.
Disclosure {
    id: root

    required property Settings settings
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
                    settings: root.settings
                    columns: root.columnWidth >= Pel.sideBySideWidth ? 2 : 1
                }
                OutputSection {
                    Layout.fillWidth: true
                    settings: root.settings
                    running: root.simulator.isRunning
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                spacing: Pel.margin

                RateSection {
                    Layout.fillWidth: true
                    settings: root.settings
                }
                StepperRow {
                    setting: root.settings.number("ais.count")
                }
            }
        }
    }
}
