pragma ComponentBehavior: Bound

import QtQuick
import Tidewright

/// The rows of the log, following the last one unless paused, scrolled away from it, or holding a
/// selection. Dragging selects characters within a line and whole lines across several; so do two
/// clicks (a field), three (a line), and the arrows with shift (lines).
///
/// Rows are all of one height, and what is in sight is told by `topRow`, the number of the row at the
/// upper edge. (A list view loses its place when rows leave at its front as fast as others come.)
Item {
    id: root

    required property ConsoleModel model
    required property bool paused
    readonly property ConsoleSelection selection: model.selection
    readonly property real digitWidth: digit.advanceWidth
    readonly property int rowHeight: Pel.consoleRowHeight + Pel.hair
    readonly property real rowsInSight: height / rowHeight
    readonly property real lowestTop: Math.max(model.begin, model.end - rowsInSight)
    readonly property bool atEnd: topRow >= lowestTop
    property real topRow: 0
    property bool following: true
    property int focusReason: Qt.OtherFocusReason // as controls have it

    signal copyRequested()

    function follow() {
        if (paused || !following || !selection.isEmpty || pointer.pressed) {
            topRow = Math.max(topRow, model.begin);
            return;
        }
        slide.stop();
        if (recent.running) {
            topRow = lowestTop;
        } else {
            slide.to = lowestTop;
            slide.start();
        }
        recent.restart();
    }

    function showEnd() {
        slide.stop();
        following = true;
        selection.clear();
        topRow = lowestTop;
    }

    /// Scrolls by so many rows, as far as there are any.
    function scrollBy(rows: real) {
        slide.stop();
        topRow = Math.max(model.begin, Math.min(topRow + rows, lowestTop));
        following = atEnd;
    }

    function showRows(first: real, last: real) {
        if (first < topRow)
            scrollBy(first - topRow);
        else if (last + 1 > topRow + rowsInSight)
            scrollBy(last + 1 - topRow - rowsInSight);
    }

    function moveSelection(step: int, extend: bool) {
        const number = selection.isEmpty ? model.newestLine() : model.lineBeside(selection.head, step);
        if (number === 0)
            return;
        if (extend && !selection.isEmpty)
            selection.extendLinesTo(number);
        else
            selection.selectLines(number, number);
        showRows(model.firstRowOf(number), model.lastRowOf(number));
    }

    activeFocusOnTab: true
    clip: true
    Accessible.role: Accessible.List
    Accessible.name: "Console"
    Accessible.description: following ? "suit les dernières lignes" : "défilement libre"
    Component.onCompleted: topRow = lowestTop
    onActiveFocusChanged: if (!activeFocus) focusReason = Qt.OtherFocusReason
    onRowsInSightChanged: if (following) topRow = lowestTop
    onPausedChanged: if (!paused) following = true
    Keys.onPressed: event => {
        if (event.matches(StandardKey.Copy))
            copyRequested();
        else if (event.matches(StandardKey.SelectAll))
            model.selectAll();
        else if (event.key === Qt.Key_Up)
            moveSelection(-1, event.modifiers & Qt.ShiftModifier);
        else if (event.key === Qt.Key_Down)
            moveSelection(+1, event.modifiers & Qt.ShiftModifier);
        else if (event.key === Qt.Key_PageUp)
            scrollBy(1 - rowsInSight);
        else if (event.key === Qt.Key_PageDown)
            scrollBy(rowsInSight - 1);
        else if (event.key === Qt.Key_Home)
            scrollBy(model.begin - topRow);
        else if (event.key === Qt.Key_End || event.key === Qt.Key_Escape)
            showEnd();
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: root.model

        function onChanged() {
            root.follow();
        }
        function onRewrapped() {
            root.following = true;
            root.topRow = root.lowestTop;
        }
    }
    NumberAnimation {
        id: slide

        target: root
        property: "topRow"
        duration: Pel.followInterval
    }
    Timer {
        id: recent // lines come in quick succession: sliding to each would never end

        interval: Pel.quietInterval
    }
    TextMetrics {
        id: digit

        font.family: Pel.monoFamily
        font.pixelSize: Pel.consoleSize
        text: "0"
    }
    Binding {
        target: root.model
        property: "columns"
        value: Math.max(20, Math.floor((root.width - Pel.scrollBarWidth - Pel.consoleTextX) / digit.advanceWidth))
    }

    Repeater {
        id: rows

        model: Math.ceil(root.rowsInSight) + 1

        ConsoleRowView {
            required property int index
            readonly property int first: Math.floor(root.topRow)
            // Each shows the one row in sight that leaves this remainder: scrolling moves them all
            // and gives new texts only to those that come from the other end.
            readonly property real shownRow: first + ((index - first) % rows.count + rows.count) % rows.count

            y: Math.round((shownRow - root.topRow) * root.rowHeight)
            width: root.width - Pel.scrollBarWidth
            height: root.rowHeight
            model: root.model
            row: shownRow
            columns: root.model.columns
            digitWidth: digit.advanceWidth
        }
    }

    ConsolePointer {
        id: pointer

        anchors.fill: parent
        anchors.rightMargin: Pel.scrollBarWidth
        console: root.model
        rowHeight: root.rowHeight
        topRow: root.topRow
        digitWidth: digit.advanceWidth
        onGrabbed: {
            root.focusReason = Qt.MouseFocusReason;
            root.forceActiveFocus(Qt.MouseFocusReason);
        }
        onReleased: root.follow()
        onScrollRequested: rows => root.scrollBy(rows)
    }

    ScrollMark {
        anchors.right: parent.right
        height: parent.height
        orientation: Qt.Vertical
        size: root.rowsInSight / Math.max(1, root.model.end - root.model.begin)
        position: pressed ? position : (root.topRow - root.model.begin) / Math.max(1, root.model.end - root.model.begin)
        onPositionChanged: {
            if (pressed)
                root.scrollBy(root.model.begin + position * (root.model.end - root.model.begin) - root.topRow);
        }
    }
}
