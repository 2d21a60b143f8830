import QtQuick
import Tidewright

/// A port number to type; blanks around it are not wrong.
EntryField {
    implicitWidth: Pel.portWidth
    font.family: Pel.monoFamily
    inputMethodHints: Qt.ImhDigitsOnly
}
