import QtQuick
import QtQuick.Layouts
import Tidewright

/// Automatic mode: the programme, the manoeuvres, the wind and the crew.
ColumnLayout {
    id: root

    required property BoatSimulationEngine engine
    required property GatewaySimulator simulator

    spacing: Pel.space

    SegmentedPicker {
        Layout.fillWidth: true
        label: "Programme"
        values: root.engine.programs
        labels: root.engine.programLabels
        current: root.engine.program
        onPicked: value => root.engine.program = value
    }
    Caption {
        objectName: "programDescription"
        Layout.fillWidth: true
        text: root.engine.programDescription
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
            text: "Virer de bord"
            shortcut: "Alt+V"
            enabled: root.simulator.isRunning
            onClicked: root.engine.triggerManeuver(true)
        }
        GhostButtonStyle {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            text: "Empanner"
            shortcut: "Alt+E"
            enabled: root.simulator.isRunning
            onClicked: root.engine.triggerManeuver(false)
        }
    }
    Caption {
        Layout.fillWidth: true
        text: "Déclenche immédiatement une manœuvre, avec rotation du cap et perte de vitesse. Une manœuvre déjà en cours doit se terminer avant la suivante."
    }

    WindSection {
        Layout.fillWidth: true
        environment: root.engine.environment
    }
    PerformanceSection {
        Layout.fillWidth: true
        environment: root.engine.environment
    }
}
