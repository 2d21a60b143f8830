import QtQuick
import Tidewright

/// Shows which control has the keyboard.
Rectangle {
    required property bool active

    anchors.fill: parent
    anchors.margins: -Pel.focusWidth
    visible: active
    radius: Pel.radius
    color: "transparent"
    border.width: Pel.focusWidth
    border.color: Pel.cyan
    Accessible.ignored: true
}
