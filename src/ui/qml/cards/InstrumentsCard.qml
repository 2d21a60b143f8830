import QtQuick
import QtQuick.Layouts
import Tidewright

/// What the boat's instruments show.
Card {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator

    title: "Instruments (en direct)"
    systemImage: "gauge.with.dots.needle.bottom.50percent"
    note: simulator.messageRate

    component Tile: StatTile {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: implicitHeight
        Layout.preferredHeight: Pel.tileHeight
        Layout.preferredWidth: Layout.columnSpan // tiles of one span are equally wide
    }

    GridLayout {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.maximumHeight: 3 * Pel.tallestTile + 2 * rowSpacing
        Layout.alignment: Qt.AlignTop
        columns: 3
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        Tile {
            label: "Vitesse fond"
            value: root.engine.sog
            unit: "nd"
        }
        Tile {
            label: "Route fond"
            value: root.engine.cog
            unit: "°"
        }
        Tile {
            label: "Vit. surface"
            value: root.engine.stw
            unit: "nd"
        }
        Tile {
            Layout.columnSpan: 2
            label: "Vent app."
            value: root.engine.windSpeed
            unit: "nd"
            secondValue: root.engine.windAngle
            secondUnit: "° " + root.engine.windSide
        }
        Tile {
            label: "Profondeur"
            value: root.engine.depth
            unit: "m"
        }
        Tile {
            Layout.columnSpan: 3
            label: "Position"
            value: root.engine.position
        }
    }
}
