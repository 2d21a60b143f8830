import QtQuick
import QtQuick.Layouts
import Tidewright

/// Which sentence families are sent, and how often.
ColumnLayout {
    id: root

    required property SimulationConfig config

    spacing: Pel.tight

    SectionLabel {
        text: "Phrases émises"
    }
    RateRow {
        Layout.fillWidth: true
        label: "Position (RMC, GGA)"
        sent: root.config.gps
        rate: root.config.positionHz
        onSwitched: value => root.config.gps = value
        onEdited: value => root.config.positionHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Route fond (VTG)"
        sent: root.config.gps
        rate: root.config.courseSpeedHz
        onSwitched: value => root.config.gps = value
        onEdited: value => root.config.courseSpeedHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Cap (HDT, HDG)"
        sent: root.config.heading
        rate: root.config.headingHz
        onSwitched: value => root.config.heading = value
        onEdited: value => root.config.headingHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Vit. surface (VHW)"
        sent: root.config.boatSpeed
        rate: root.config.boatSpeedHz
        onSwitched: value => root.config.boatSpeed = value
        onEdited: value => root.config.boatSpeedHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Vent (MWV)"
        sent: root.config.wind
        rate: root.config.windHz
        onSwitched: value => root.config.wind = value
        onEdited: value => root.config.windHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Profondeur (DBT, DPT)"
        sent: root.config.depth
        rate: root.config.depthHz
        onSwitched: value => root.config.depth = value
        onEdited: value => root.config.depthHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "Température (MTW)"
        sent: root.config.temperature
        rate: root.config.temperatureHz
        onSwitched: value => root.config.temperature = value
        onEdited: value => root.config.temperatureHz = value
    }
    RateRow {
        Layout.fillWidth: true
        label: "AIS (VDM)"
        sent: root.config.ais
        rate: root.config.aisHz
        onSwitched: value => root.config.ais = value
        onEdited: value => root.config.aisHz = value
    }
    Caption {
        Layout.fillWidth: true
        text: "Position et route fond ont le même interrupteur."
    }
}
