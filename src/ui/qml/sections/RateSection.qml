pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// Which sentence families are sent, and how often.
ColumnLayout {
    id: root

    required property Settings settings

    spacing: Pel.tight

    SectionLabel {
        text: "Phrases émises"
    }
    Repeater {
        model: [["gps", "position"], ["gps", "course-speed"], ["heading", "heading"],
            ["boat-speed", "boat-speed"], ["wind", "wind"], ["depth", "depth"],
            ["temperature", "temperature"], ["ais", "ais"]]

        RateRow {
            required property var modelData

            sensor: root.settings.flag("sensors." + modelData[0])
            rate: root.settings.number("rates." + modelData[1])
        }
    }
    Caption {
        Layout.fillWidth: true
        text: "Position et route fond ont le même interrupteur."
    }
}
