pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Tidewright

/// The lines of the log, following the last one unless paused, scrolled away from it, or holding a
/// selection. Dragging selects whole lines; so do the arrows, with shift.
ListView {
    id: root

    required property ConsoleSelection selection
    required property bool paused
    property bool following: true

    signal copyRequested()
    signal selectAllRequested()

    function follow() {
        if (paused || !following || !selection.isEmpty || count === 0)
            return;
        if (recent.running) {
            positionViewAtEnd();
        } else {
            tail.to = Math.max(originY + contentHeight - height, originY);
            tail.restart();
        }
        recent.restart();
    }

    function showTail() {
        following = true;
        selection.clear();
        positionViewAtEnd();
    }

    function moveSelection(step: int, extend: bool) {
        const row = selection.isEmpty ? count - 1 : model.rowOf(selection.head) + step;
        const number = model.numberAt(Math.max(Math.min(row, count - 1), 0));
        if (extend)
            selection.extendTo(number);
        else
            selection.select(number);
        positionViewAtIndex(model.rowOf(number), ListView.Contain);
    }

    function numberUnder(y: real): double {
        return model.numberAt(Math.floor((y + contentY - originY) / (Pel.consoleRowHeight + spacing)));
    }

    clip: true
    activeFocusOnTab: true
    reuseItems: true
    cacheBuffer: 0 // rows out of sight are not worth their memory
    spacing: Pel.hair
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.List
    Accessible.name: "Console"

    onCountChanged: follow()
    onPausedChanged: if (!paused) following = true
    onMovementEnded: following = atYEnd
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Copy))
            copyRequested();
        else if (event.matches(StandardKey.SelectAll))
            selectAllRequested();
        else if (event.key === Qt.Key_Up)
            moveSelection(-1, event.modifiers & Qt.ShiftModifier);
        else if (event.key === Qt.Key_Down)
            moveSelection(+1, event.modifiers & Qt.ShiftModifier);
        else if (event.key === Qt.Key_End || event.key === Qt.Key_Escape)
            showTail();
        else
            return;
        event.accepted = true;
    }

    delegate: ConsoleRow {
        width: ListView.view.width
        selected: number >= root.selection.first && number <= root.selection.last
    }

    NumberAnimation on contentY {
        id: tail

        running: false
        duration: Pel.followInterval
    }
    Timer {
        id: recent // lines come one upon the other: sliding to each would never end

        interval: Pel.quietInterval
    }

    MouseArea {
        anchors.fill: parent
        z: 1
        preventStealing: true
        onPressed: mouse => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            if (mouse.modifiers & Qt.ShiftModifier)
                root.selection.extendTo(root.numberUnder(mouse.y));
            else
                root.selection.select(root.numberUnder(mouse.y));
        }
        onPositionChanged: mouse => root.selection.extendTo(root.numberUnder(mouse.y))
        onWheel: wheel => wheel.accepted = false
    }

    ScrollBar.vertical: ScrollBar {
        id: bar

        padding: 0
        minimumSize: 0.1
        contentItem: Rectangle {
            implicitWidth: Pel.scrollBarWidth
            radius: Pel.tight
            color: bar.pressed ? Pel.inkMuted : Pel.line
            visible: bar.size < 1
        }
        onPressedChanged: if (!pressed) root.following = root.atYEnd
    }
}
