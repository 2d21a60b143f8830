import QtQuick
import QtQuick.Layouts
import Tidewright

/// The log of what is sent, and the faults.
Disclosure {
    id: root

    required property FailureInjection failure
    required property GatewaySimulator simulator

    heading: "Console NMEA"
    image: "terminal"

    // Bound components cannot be instantiated by a Loader here.
    // qmllint disable unqualified
    section: GridLayout {
        readonly property bool sideBySide: width >= Pel.twoColumnWidth - 4 * Pel.margin

        columns: sideBySide ? 2 : 1
        columnSpacing: 2 * Pel.margin
        rowSpacing: Pel.margin

        ConsoleView {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            simulator: root.simulator
        }
        FailurePanel {
            Layout.fillWidth: !parent.sideBySide
            Layout.preferredWidth: Pel.panelWidth
            Layout.alignment: Qt.AlignTop
            simulator: root.simulator
            failure: root.failure
        }
    }
}
