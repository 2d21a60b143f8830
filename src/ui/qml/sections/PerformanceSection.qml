import QtQuick
import QtQuick.Layouts
import Tidewright

/// How well the boat is sailed in automatic mode.
ColumnLayout {
    id: root

    required property Settings settings

    spacing: Pel.gap

    SectionLabel {
        Layout.topMargin: Pel.tight
        text: "Performance du bateau"
    }
    ManualSliderRow {
        setting: root.settings.number("boat.performance")
    }
    SwitchRow {
        setting: root.settings.flag("boat.crew-steps")
    }
    Caption {
        Layout.fillWidth: true
        text: "100 % = la polaire de référence du simulateur. Choisissez 90 ou 108 % pour que le bateau ne tombe pas pile sur votre polaire. Les paliers retirent 0 à 6 points sous ce niveau, par périodes de 15 à 30 minutes."
    }
}
