import QtQuick
import QtQuick.Layouts
import Tidewright

/// How well the boat is sailed in automatic mode.
ColumnLayout {
    id: root

    required property SailingEnvironment environment

    spacing: Pel.gap

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Performance du bateau"
    }
    ManualSliderRow {
        Layout.fillWidth: true
        label: "% de polaire"
        value: root.environment.performancePercent
        from: 70
        to: 114.99999999999999 // 1.15 of the polar, in per cent, as doubles have it
        step: 1
        unit: "%"
        format: "%.0f"
        onEdited: value => root.environment.performancePercent = value
    }
    SwitchRow {
        Layout.fillWidth: true
        text: "Paliers d'équipage"
        setting: root.environment.crewSteps
        onEdited: value => root.environment.crewSteps = value
    }
    Caption {
        Layout.fillWidth: true
        text: "100 % = la polaire de référence du simulateur. Choisissez 90 ou 108 % pour que le bateau ne tombe pas pile sur votre polaire. Les paliers retirent 0 à 6 points sous ce niveau, par périodes de 15 à 30 minutes."
    }
}
