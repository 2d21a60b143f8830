import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A button without looks: pressed with the mouse, Space, Enter, or by assistive technology. What it
/// does more than its text says, and its shortcut, stand in a hint.
AbstractButton {
    id: root

    property string hint: ""
    property string shortcut: ""

    focusPolicy: Qt.StrongFocus
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Shortcut {
        enabled: root.enabled && root.visible && root.shortcut !== ""
        sequence: root.shortcut
        onActivated: root.clicked()
    }
    Hint {
        text: root.hint + (root.hint && root.shortcut ? " · " : "") + root.shortcut
        shown: root.hovered || root.visualFocus
    }
}
