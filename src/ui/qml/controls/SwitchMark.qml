import QtQuick
import Tidewright

/// The picture of a switch.
Rectangle {
    id: root

    required property bool on
    property bool focused: false

    implicitWidth: Pel.switchWidth
    implicitHeight: Pel.switchHeight
    radius: height / 2
    color: on ? Pel.brand : Pel.panelAlt
    border.width: Pel.hair
    border.color: on ? Pel.brand : Pel.inkMuted

    Rectangle {
        x: root.on ? parent.width - width - Pel.tight : Pel.tight
        anchors.verticalCenter: parent.verticalCenter
        width: Pel.knobSize
        height: Pel.knobSize
        radius: width / 2
        color: root.on ? Pel.onBrand : Pel.inkMuted
    }

    FocusRing {
        radius: height / 2
        active: root.focused
    }
}
