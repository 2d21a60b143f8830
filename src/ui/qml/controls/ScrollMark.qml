import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A slim scroll bar, in sight while there is something to scroll to.
ScrollBar {
    id: root

    padding: 0
    minimumSize: 0.1
    contentItem: Rectangle {
        implicitWidth: Pel.scrollBarWidth
        implicitHeight: Pel.scrollBarWidth
        radius: Pel.tight
        color: root.pressed || root.hovered ? Pel.inkMuted : Pel.outline
        visible: root.size < 1
    }
}
