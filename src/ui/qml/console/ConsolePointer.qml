import QtQuick
import Tidewright

/// Selects and scrolls in the console with the mouse.
MouseArea {
    id: root

    required property ConsoleModel console
    required property int rowHeight
    required property real topRow
    required property real digitWidth
    readonly property ConsoleSelection selection: console.selection

    signal grabbed()
    signal scrollRequested(rows: real)

    function place(x: real, y: real): var {
        const inside = Math.max(0, Math.min(y, height - 1));
        return console.place(Math.floor(topRow + inside / rowHeight), Math.round((x - Pel.consoleTextX) / digitWidth));
    }

    function extend() {
        const here = place(mouseX, mouseY);
        if (here.number === 0)
            return;
        if (here.number === clicks.number)
            selection.extendTo(here.number, here.column);
        else
            selection.extendLinesTo(here.number);
    }

    function selectField(number: double, column: int) {
        const text = console.textOf(number);
        const delimiter = /[\s,*]/;
        let from = column, to = column;
        while (from > 0 && !delimiter.test(text[from - 1]))
            --from;
        while (to < text.length && !delimiter.test(text[to]))
            ++to;
        selection.selectWithin(number, from, to);
    }

    preventStealing: true
    cursorShape: Qt.IBeamCursor
    onPressed: mouse => {
        grabbed();
        const here = place(mouse.x, mouse.y);
        if (here.number === 0)
            return;
        if (mouse.modifiers & Qt.ShiftModifier) {
            extend();
            return;
        }
        const again = clicks.running && clicks.number === here.number && Math.abs(clicks.x - mouse.x) < Pel.gap;
        clicks.count = again ? clicks.count + 1 : 1;
        clicks.number = here.number;
        clicks.x = mouse.x;
        clicks.restart();
        if (clicks.count === 1)
            selection.begin(here.number, here.column);
        else if (clicks.count === 2)
            selectField(here.number, here.column);
        else
            selection.selectLines(here.number, here.number);
    }
    onPositionChanged: mouse => {
        beyond.rows = mouse.y < 0 ? -1 : mouse.y > height ? 1 : 0;
        if (Math.abs(mouse.x - clicks.x) >= Pel.gap)
            clicks.stop(); // dragged: the next press begins anew
        if (clicks.count === 1)
            extend();
    }
    onReleased: beyond.rows = 0
    onCanceled: beyond.rows = 0
    onWheel: wheel => {
        const rows = wheel.pixelDelta.y !== 0 ? wheel.pixelDelta.y / rowHeight : wheel.angleDelta.y / 40;
        const before = topRow;
        if (!(wheel.modifiers & Qt.ControlModifier))
            scrollRequested(-rows);
        wheel.accepted = topRow !== before; // at an end, the page scrolls on
    }

    Timer {
        id: clicks

        property int count: 0
        property double number: 0
        property real x: 0

        interval: Application.styleHints.mouseDoubleClickInterval
    }
    Timer {
        id: beyond // held above or below the list: scroll on

        property int rows: 0

        interval: Pel.followInterval / 2
        repeat: true
        running: rows !== 0
        onTriggered: {
            root.scrollRequested(rows);
            root.extend();
        }
    }
}
