import QtQuick
import QtQuick.Layouts
import Tidewright

/// Which lines of the log are shown.
GridLayout {
    id: root

    required property ConsoleModel model
    required property bool narrow

    columns: narrow ? 1 : 2
    columnSpacing: Pel.gap
    rowSpacing: Pel.gap

    SegmentedPicker {
        Layout.fillWidth: root.narrow
        Layout.preferredWidth: Pel.transportPickerWidth
        label: "Transport"
        values: ["", "SYS", "TCP", "UDP"]
        labels: ["Tout", "SYS", "TCP", "UDP"]
        current: root.model.transport
        onPicked: value => root.model.transport = value
    }
    EntryField {
        id: words

        objectName: "words"
        Layout.fillWidth: true
        label: "Filtrer"
        placeholderText: "Filtrer : RMC, AIVDM, texte…"
        entry: root.model.words
        hint: "Un nom de phrase en capitales, ou du texte · Ctrl+F"
        onTextEdited: root.model.words = text
        Keys.onEscapePressed: root.model.words = ""

        Shortcut {
            sequence: "Ctrl+F"
            onActivated: words.forceActiveFocus(Qt.ShortcutFocusReason)
        }
    }
}
