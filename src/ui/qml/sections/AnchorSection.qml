import QtQuick
import QtQuick.Layouts
import Tidewright

/// Anchor mode: the wind, the chain and the anchor's hold.
ColumnLayout {
    id: root

    required property Settings settings
    readonly property FlagSetting shifting: settings.flag("anchor.shifting-wind")
    readonly property FlagSetting taut: settings.flag("anchor.chain-taut")
    readonly property FlagSetting dragging: settings.flag("anchor.dragging")

    spacing: Pel.gap

    BodyText {
        Layout.fillWidth: true
        text: "Le bateau évite autour de son ancre. La position, la route et la vitesse fond émises suivent le mouvement simulé."
    }

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Vent"
    }
    ManualSliderRow {
        setting: root.settings.number("anchor.wind-direction")
    }
    ManualSliderRow {
        setting: root.settings.number("anchor.wind-speed")
    }
    SwitchRow {
        setting: root.shifting
    }
    ManualSliderRow {
        visible: root.shifting.value
        setting: root.settings.number("anchor.shift-amplitude")
    }
    Caption {
        Layout.fillWidth: true
        visible: root.shifting.value
        text: "Le vent oscille de part et d'autre de la direction choisie sur un cycle de 2 minutes."
    }

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Mouillage"
    }
    ManualSliderRow {
        setting: root.settings.number("anchor.chain-length")
    }
    SegmentedPicker {
        Layout.fillWidth: true
        label: "Tension de la chaîne"
        values: ["taut", "slack"]
        labels: ["Chaîne tendue", "Chaîne molle"]
        current: root.taut.value ? "taut" : "slack"
        onPicked: value => root.taut.value = value === "taut"
    }
    Caption {
        objectName: "chainCaption"
        Layout.fillWidth: true
        text: root.taut.value
              ? "Chaîne tendue : le bateau évite près de la limite de la chaîne."
              : "Chaîne molle : le bateau reste plus près de l'ancre et réagit plus lentement."
    }
    SwitchRow {
        setting: root.dragging
    }
    ManualSliderRow {
        visible: root.dragging.value
        setting: root.settings.number("anchor.drag-speed")
    }
    Caption {
        Layout.fillWidth: true
        visible: root.dragging.value
        text: "L'ancre glisse sous le vent ; la trace GPS peut sortir du cercle de mouillage."
    }
}
