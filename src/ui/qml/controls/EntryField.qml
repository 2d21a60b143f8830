pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// A text to type over what is in force. What is wrong with it shows while it is wrong; Enter, or leaving
/// the field, enters what is right; Escape brings back what is in force.
TextField {
    id: root

    required property string label
    required property string entry
    property var check: text => "" // what is wrong with a text, in words; empty: nothing
    property string hint: ""
    property bool plain: false // looks like text until it is used
    readonly property string problem: text === entry ? "" : check(text)

    signal entered(text: string)

    function showEntry() {
        text = Qt.binding(() => root.entry);
    }

    implicitHeight: Pel.controlHeight
    leftPadding: plain ? Pel.tight : Pel.space
    rightPadding: leftPadding
    topPadding: 0
    bottomPadding: 0
    verticalAlignment: Text.AlignVCenter
    text: entry
    color: problem === "" ? Pel.ink : Pel.danger
    placeholderTextColor: Pel.inkMuted
    selectionColor: Pel.brand
    selectedTextColor: Pel.onBrand
    font.pixelSize: Pel.textSize
    opacity: enabled ? 1 : Pel.disabledOpacity
    selectByMouse: true
    Accessible.name: label
    Accessible.description: problem
    onEditingFinished: {
        if (problem !== "")
            return;
        entered(text);
        showEntry();
    }
    onActiveFocusChanged: if (activeFocus && focusReason !== Qt.MouseFocusReason) selectAll()
    Keys.onEscapePressed: showEntry()

    Hint {
        text: root.hint
        shown: root.hovered && !root.activeFocus
    }

    background: Rectangle {
        radius: root.plain ? Pel.tight : Pel.radius
        color: root.plain && !root.activeFocus ? "transparent" : Pel.panelAlt
        border.width: root.plain && !root.activeFocus && !root.hovered && root.problem === "" ? 0 : Pel.hair
        border.color: root.problem === "" ? Pel.outline : Pel.danger

        FocusRing {
            radius: parent.radius
            active: root.activeFocus
        }
    }
}
