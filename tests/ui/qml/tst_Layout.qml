import QtQuick
import QtTest
import Tidewright

/// The whole window at many widths: nothing lies over anything else, nothing sticks out.
WindowCase {
    id: root

    name: "Layout"
    width: 2400
    height: 3000

    Component {
        id: views

        ContentView {
            height: 3000
            engine: root.bench.engine
            settings: root.bench.settings
            actions: root.bench.actions
            simulator: root.bench.simulator
        }
    }

    function test_nothingOverlaps_data() {
        const cases = [];
        for (const width of [400, 420, 700, 820, 1040, 1600, 2400])
            for (const mode of ["auto", "manual", "anchor"])
                for (const running of [false, true])
                    cases.push({tag: width + " " + mode + (running ? " running" : " stopped"), width, mode, running});
        return cases;
    }

    function test_nothingOverlaps(data) {
        bench.set("boat.mode", data.mode);
        bench.set("wind.preset", "custom");
        bench.set("anchor.shifting-wind", true);
        bench.set("anchor.dragging", true);
        const view = make(views, {width: data.width});
        compare(overlaps(view), []);
        control(view, "Réglages avancés").clicked();
        control(view, "Console NMEA").clicked();
        if (data.running) {
            bench.simulator.start();
            bench.connectClients(["10.0.0.2", "fe80::1234:5678:9abc:def0"]);
            bench.set("faults.latency", 2000);
            bench.advance(3000);
            bench.simulator.consolePaused = true;
            bench.advance(1000);
            control(view, "Détail des clients").clicked();
        }
        waitForRendering(view);
        compare(overlaps(view), []);
        staysInside(view, data.width);
    }

    function test_seesWhatOverlaps() { // or the test above could not fail
        const view = make(views, {width: 1040});
        compare(overlaps(view), []);
        control(view, "Virer de bord").y += 30;
        verify(overlaps(view).length > 0);
    }

    function staysInside(view: Item, width: int) {
        each(view, item => {
            if (!item.visible || item.text === undefined || item.text === "" || item.elide)
                return;
            const left = item.mapToItem(view, 0, 0).x;
            verify(left >= 0 && left + Math.min(item.width, item.implicitWidth) <= width + 1, item.text);
        });
    }

    function test_layTwoColumnsWhereThereIsRoom_data() {
        return [{width: 700, columns: 1}, {width: 1040, columns: 2}, {width: 1600, columns: 2}];
    }

    function test_layTwoColumnsWhereThereIsRoom(data) {
        const view = make(views, {width: data.width});
        control(view, "Réglages avancés").clicked();
        waitForRendering(view);
        const left = control(view, "Port TCP").mapToItem(view, 0, 0);
        const right = control(view, "Cadence : Cap (HDT, HDG)").mapToItem(view, 0, 0);
        compare(right.x > left.x + 100, data.columns === 2);
        const tiles = ["Digital Yacht iKonvert / WLN10", "MiniPlex 3Wi"].map(each => control(view, each).mapToItem(view, 0, 0).y);
        compare(tiles[0] === tiles[1], true);
    }

    function test_theHeaderStandsAboveTheCards_data() {
        return [{width: 1040}, {width: 2400}];
    }

    function test_theHeaderStandsAboveTheCards(data) {
        const view = make(views, {width: data.width});
        let heading = null;
        each(view, item => {
            if (!heading && item.text === "Connectez votre iPhone")
                heading = item;
        });
        let card = heading;
        while (card.radius === undefined)
            card = card.parent;
        let symbol = null;
        each(view, item => {
            if (item.name === "sailboat")
                symbol = item;
        });
        fuzzyCompare(symbol.mapToItem(view, 0, 0).x, card.mapToItem(view, 0, 0).x, 1);
    }

    function test_thePageNeverScrollsBeyondItsEnds() {
        const view = make(views, {width: 1040, height: 700});
        control(view, "Console NMEA").clicked();
        bench.simulator.start();
        bench.advance(20000);
        waitForRendering(view);
        const pane = findChild(view, "scrollPane");
        const list = findChild(view, "consoleList");
        tryVerify(() => pane.contentY > 0);
        list.forceActiveFocus(Qt.TabFocusReason);
        wait(50);
        const before = pane.contentY;
        verify(before >= 0 && before <= pane.contentHeight - pane.height);
        mouseClick(list, 100, 100);
        bench.advance(5000);
        wait(50);
        compare(pane.contentY, before);
    }
}
