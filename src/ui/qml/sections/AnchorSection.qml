import QtQuick
import QtQuick.Layouts
import Tidewright

/// Anchor mode: the wind, the chain and the anchor's hold.
ColumnLayout {
    id: root

    required property AnchorSettings settings

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
        Layout.fillWidth: true
        label: "Direction du vent"
        value: root.settings.windDirection
        from: 0
        to: 359
        step: 1
        unit: "°"
        format: "%.0f"
        onEdited: value => root.settings.windDirection = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Force du vent"
        value: root.settings.windSpeed
        from: 0
        to: 50
        step: 1
        unit: "nd"
        format: "%.0f"
        onEdited: value => root.settings.windSpeed = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Bascules automatiques du vent"
        setting: root.settings.shiftingWind
        onEdited: value => root.settings.shiftingWind = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        visible: root.settings.shiftingWind
        label: "Amplitude des bascules"
        value: root.settings.shiftAmplitude
        from: 0
        to: 180
        step: 1
        unit: "°"
        format: "%.0f"
        onEdited: value => root.settings.shiftAmplitude = value
    }
    Caption {
        Layout.fillWidth: true
        visible: root.settings.shiftingWind
        text: "Le vent oscille de part et d'autre de la direction choisie sur un cycle de 2 minutes."
    }

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Mouillage"
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "Longueur de chaîne"
        value: root.settings.chainLength
        from: 5
        to: 200
        step: 1
        unit: "m"
        format: "%.0f"
        onEdited: value => root.settings.chainLength = value
    }
    SegmentedPicker {
        Layout.fillWidth: true
        label: "Tension de la chaîne"
        values: ["taut", "slack"]
        labels: ["Chaîne tendue", "Chaîne molle"]
        current: root.settings.chainTaut ? "taut" : "slack"
        onPicked: value => root.settings.chainTaut = value === "taut"
    }
    Caption {
        objectName: "chainCaption"
        Layout.fillWidth: true
        text: root.settings.chainTaut
              ? "Chaîne tendue : le bateau évite près de la limite de la chaîne."
              : "Chaîne molle : le bateau reste plus près de l'ancre et réagit plus lentement."
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Ancre qui dérape"
        setting: root.settings.dragging
        onEdited: value => root.settings.dragging = value
    }
    ManualSliderRow {
        Layout.fillWidth: true
        visible: root.settings.dragging
        label: "Vitesse de dérapage"
        value: root.settings.dragSpeed
        from: 0
        to: 3
        step: 0.1
        unit: "nd"
        format: "%.1f"
        onEdited: value => root.settings.dragSpeed = value
    }
    Caption {
        Layout.fillWidth: true
        visible: root.settings.dragging
        text: "L'ancre glisse sous le vent ; la trace GPS peut sortir du cercle de mouillage."
    }
}
