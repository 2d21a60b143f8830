import QtQuick
import Tidewright

/// A status dot with a halo that comes and goes, in steps, while pulsing.
Rectangle {
    id: root

    required property bool pulsing
    property bool on: false

    implicitWidth: Pel.dotSize
    implicitHeight: Pel.dotSize
    radius: width / 2
    Accessible.ignored: true
    onPulsingChanged: on = pulsing

    Rectangle {
        anchors.fill: parent
        anchors.margins: -Pel.tight
        z: -1
        radius: width / 2
        visible: root.on
        color: Qt.rgba(root.color.r, root.color.g, root.color.b, 0.3)
    }

    Timer {
        interval: Pel.pulseInterval
        repeat: true
        running: root.pulsing
        onTriggered: root.on = !root.on
    }
}
