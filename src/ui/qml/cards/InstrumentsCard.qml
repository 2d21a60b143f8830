pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// What the boat's instruments show: their values, the water around her, and the wind.
Card {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator

    title: "Instruments (en direct)"
    systemImage: "gauge.with.dots.needle.bottom.50percent"
    note: simulator.messageRate

    Flow {
        id: tiles

        readonly property bool roomy: width >= Pel.twoRowsOfTilesWidth

        Layout.fillWidth: true
        spacing: Pel.gap

        component Tile: StatTile {
            required property int from // sixtieths of a row
            required property int to

            function edge(share: int): int {
                return Math.round((tiles.width + Pel.gap) * share / 60);
            }

            width: edge(to) - edge(from) - Pel.gap
        }

        Tile {
            from: 0
            to: tiles.roomy ? 15 : 20
            label: "Vitesse fond"
            value: root.engine.sog
            unit: "nd"
        }
        Tile {
            from: tiles.roomy ? 15 : 20
            to: tiles.roomy ? 30 : 40
            label: "Route fond"
            value: root.engine.cog
            unit: "°"
        }
        Tile {
            from: tiles.roomy ? 30 : 40
            to: tiles.roomy ? 45 : 60
            label: "Vit. surface"
            value: root.engine.stw
            unit: "nd"
        }
        Tile {
            from: tiles.roomy ? 45 : 0
            to: tiles.roomy ? 60 : 20
            label: "Profondeur"
            value: root.engine.depth
            unit: "m"
        }
        Tile {
            from: tiles.roomy ? 0 : 20
            to: tiles.roomy ? 27 : 60
            label: "Vent app."
            value: root.engine.windSpeed
            unit: "nd"
            secondValue: root.engine.windAngle
            secondUnit: "° " + root.engine.windSide
        }
        Tile {
            from: tiles.roomy ? 27 : 0
            to: 60
            label: "Position"
            value: root.engine.position
        }
    }

    GridLayout {
        readonly property bool sideBySide: width >= Pel.sideBySideWidth

        Layout.fillWidth: true
        Layout.fillHeight: true
        columns: sideBySide ? 2 : 1
        columnSpacing: Pel.gap
        rowSpacing: Pel.gap

        Chart {
            Layout.fillWidth: true
            Layout.fillHeight: true
            engine: root.engine
            simulator: root.simulator
        }
        WindDial {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.maximumWidth: parent.sideBySide ? Pel.dialWidth : -1
            Layout.maximumHeight: parent.sideBySide ? -1 : Pel.dialHeight
            lying: !parent.sideBySide
            engine: root.engine
        }
    }
}
