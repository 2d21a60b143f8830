pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// Where the sentences go, and under whose name. `running`: outputs are open, on the ports they have.
ColumnLayout {
    id: root

    required property Settings settings
    required property bool running

    spacing: Pel.gap

    SectionLabel {
        text: "Sorties"
    }

    component Output: ColumnLayout {
        id: output

        required property FlagSetting on
        required property NumberSetting port

        Layout.fillWidth: true
        spacing: Pel.tight

        RowLayout {
            Layout.fillWidth: true
            spacing: Pel.gap

            SwitchRow {
                leading: true
                setting: output.on
            }
            Caption {
                text: output.port.label
                Accessible.ignored: true
            }
            PortField {
                id: field

                setting: output.port
            }
        }
        Problem {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignRight
            text: field.problem === "" ? "" : field.problem + " " + output.port.text + " reste en vigueur."
        }
    }

    Output {
        on: root.settings.flag("network.tcp")
        port: root.settings.number("network.tcp-port")
    }
    Output {
        on: root.settings.flag("network.udp")
        port: root.settings.number("network.udp-port")
    }
    Caption {
        Layout.fillWidth: true
        visible: root.running
        text: "Une sortie rallumée pendant l'émission ne s'ouvre qu'au prochain démarrage."
    }

    SectionLabel {
        Layout.topMargin: Pel.gap
        text: talker.label
    }
    ChoiceRow {
        id: talker

        setting: root.settings.choice("network.talker")
    }
}
