import QtQuick
import Tidewright

/// An outlined button that copies, and shows a check mark for a moment when it has.
GhostButtonStyle {
    id: root

    property bool copied: false

    systemImage: copied ? "checkmark" : "doc.on.doc"
    Accessible.description: copied ? "copié" : ""
    onClicked: {
        copied = true;
        feedback.restart();
    }

    Timer {
        id: feedback

        interval: Pel.feedbackInterval
        onTriggered: root.copied = false
    }
}
