pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tidewright

/// The water around the boat, north up: herself, where she came from, her anchor and the vessels.
Rectangle {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator

    implicitHeight: Pel.pictureHeight
    radius: Pel.radius
    color: Pel.panelAlt
    border.width: Pel.hair
    border.color: Pel.line

    component ZoomButton: GhostButtonStyle {
        id: button

        required property string image
        property color tone: Pel.ink

        Layout.preferredWidth: Pel.rowHeight
        Layout.preferredHeight: Pel.rowHeight
        contentItem: Item {
            Symbol {
                anchors.centerIn: parent
                name: button.image
                color: button.tone
            }
        }

        Rectangle {
            anchors.fill: parent
            z: -2
            radius: Pel.radius
            color: Pel.panelAlt
        }
    }

    ChartPicture {
        id: picture

        objectName: "chart"
        anchors.fill: parent
        anchors.margins: Pel.hair
        engine: root.engine
        simulator: root.simulator
        water: Pel.panelAlt
        line: Pel.line
        ink: Pel.ink
        muted: Pel.inkMuted
        boat: Pel.brand
        vessel: Pel.cyan
        anchor: Pel.ok
        textSize: Pel.labelSize
        covered: Qt.rect(buttons.x, buttons.y, buttons.width, buttons.height)
        Accessible.role: Accessible.Graphic
        Accessible.name: "Carte"
        Accessible.description: description
    }

    ColumnLayout {
        id: buttons

        anchors.top: parent.top
        anchors.right: parent.right
        anchors.margins: Pel.gap
        spacing: Pel.tight

        ZoomButton {
            text: "Agrandir"
            image: "plus"
            onClicked: picture.zoom(1)
        }
        ZoomButton {
            text: "Réduire"
            image: "minus"
            onClicked: picture.zoom(-1)
        }
        ZoomButton {
            text: "Cadrage automatique"
            image: "viewfinder"
            tone: picture.automatic ? Pel.brand : Pel.ink
            Accessible.description: picture.automatic ? "en service" : ""
            onClicked: picture.fit()
        }
    }
}
