import QtQuick
import QtQuick.Layouts
import Tidewright

/// Automatic mode: the programme, the manoeuvres, the wind and the crew.
ColumnLayout {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator
    required property Settings settings
    required property Actions actions
    readonly property ChoiceSetting program: settings.choice("boat.program")

    spacing: Pel.space

    ChoiceRow {
        setting: root.program
    }
    Caption {
        objectName: "programDescription"
        Layout.fillWidth: true
        text: root.program.detail
    }

    Rectangle {
        Layout.fillWidth: true
        visible: root.engine.autoStatus !== ""
        implicitHeight: status.implicitHeight + 2 * Pel.gap
        radius: Pel.radius
        color: Pel.panelAlt
        border.width: Pel.hair
        border.color: Pel.line

        BodyText {
            id: status

            objectName: "autoStatus"
            anchors.fill: parent
            anchors.margins: Pel.gap
            anchors.leftMargin: Pel.space
            anchors.rightMargin: Pel.space
            text: root.engine.autoStatus
            color: Pel.cyan
            font.pixelSize: Pel.captionSize
            Accessible.name: "Statut"
            Accessible.description: text
        }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: Pel.gap

        GhostButtonStyle {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            text: root.actions.label("tack")
            shortcut: "Alt+V"
            enabled: root.simulator.isRunning
            onClicked: root.actions.perform("tack")
        }
        GhostButtonStyle {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            text: root.actions.label("gybe")
            shortcut: "Alt+E"
            enabled: root.simulator.isRunning
            onClicked: root.actions.perform("gybe")
        }
    }
    Caption {
        Layout.fillWidth: true
        text: "Déclenche immédiatement une manœuvre, avec rotation du cap et perte de vitesse. Une manœuvre déjà en cours doit se terminer avant la suivante."
    }

    WindSection {
        Layout.fillWidth: true
        engine: root.engine
        settings: root.settings
    }
    PerformanceSection {
        Layout.fillWidth: true
        settings: root.settings
    }
}
