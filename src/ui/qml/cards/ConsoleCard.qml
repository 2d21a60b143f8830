import QtQuick
import QtQuick.Layouts
import Tidewright

/// The log of what is sent, and the faults.
Disclosure {
    id: root

    required property Settings settings
    required property Actions actions
    required property GatewaySimulator simulator
    required property int viewHeight // what of the page is in sight
    readonly property bool sideBySide: contentWidth >= Pel.twoColumnWidth - 4 * Pel.margin
    readonly property bool narrow: contentWidth < Pel.sideBySideWidth

    /// How high the log may be for the whole card to be in sight.
    readonly property int listHeight: {
        const toolbar = (narrow ? 4 : 2) * (Pel.controlHeight + Pel.gap);
        const heading = Pel.symbolSize + Pel.tight + Pel.space;
        return Math.max(Pel.consoleHeight, viewHeight - 4 * Pel.margin - heading - toolbar);
    }

    /// The panel of faults, once unfolded.
    readonly property Item faults: sectionItem ? sectionItem.faults : null

    heading: "Console NMEA"
    image: "terminal"

    // Bound components cannot be instantiated by a Loader here.
    // qmllint disable unqualified
    section: GridLayout {
        readonly property Item faults: panel

        columns: root.sideBySide ? 2 : 1
        columnSpacing: 2 * Pel.margin
        rowSpacing: Pel.margin

        ConsoleView {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            simulator: root.simulator
            narrow: root.narrow
            listHeight: root.listHeight
        }
        FailurePanel {
            id: panel

            Layout.fillWidth: !root.sideBySide
            Layout.preferredWidth: Pel.panelWidth
            Layout.alignment: Qt.AlignTop
            simulator: root.simulator
            settings: root.settings
            actions: root.actions
        }
    }
}
