pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// Manual mode: every value dialled in by hand.
ColumnLayout {
    id: root

    required property Settings settings

    spacing: Pel.gap

    Repeater {
        model: ["wind-speed", "wind-angle", "speed", "heading", "depth", "water-temperature"]

        ManualSliderRow {
            required property string modelData

            setting: root.settings.number("manual." + modelData)
        }
    }
}
