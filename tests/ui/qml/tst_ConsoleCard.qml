import QtQuick
import QtTest
import Tidewright

WindowCase {
    id: root

    name: "ConsoleCard"

    Component {
        id: cards

        ConsoleCard {
            width: 460
            settings: root.bench.settings
            actions: root.bench.actions
            simulator: root.bench.simulator
            viewHeight: 700
            open: true
        }
    }
    function log(count: int, text: string) {
        for (let i = 0; i < count; ++i)
            bench.logQuietly("SYS", text ?? "ligne " + (i + 1));
        bench.advance(200);
    }

    function listOf(card: Item): Item {
        return findChild(card, "consoleList");
    }

    /// The texts in sight, from top to bottom.
    function rowsInSight(list: Item): var {
        const found = [];
        each(list, item => {
            if (item.objectName === "text" && item.parent.visible && item.text !== "")
                found.push([item.parent.y, item.text]);
        });
        return found.sort((a, b) => a[0] - b[0]).map(each => each[1]);
    }

    /// The colour of the first transport in sight, as it is drawn.
    function drawnColour(card: Item, transport: string): color {
        let found = null;
        each(card, item => {
            if (item.objectName === "transport" && item.parent.visible && item.text === transport)
                found = item;
        });
        verify(found, transport);
        return found.color;
    }

    function test_coloursTheTransport() {
        const card = make(cards);
        const expected = {TCP: Pel.brand, UDP: Pel.cyan, SYS: Pel.warn, tcp: Pel.inkMuted, ERR: Pel.inkMuted};
        for (const transport in expected)
            bench.log(transport, "texte");
        for (const transport in expected)
            tryVerify(() => Qt.colorEqual(drawnColour(card, transport), expected[transport]), 1000, transport);
    }

    function test_showsTheThroughput() {
        const card = make(cards);
        verify(shows(card, "0 msg/s"));
        verify(shows(card, "0.0 KB/s"));
        bench.simulator.start();
        bench.advance(3100);
        verify(/^\d+ msg\/s$/.test(findChild(card, "messageRate").text));
        verify(/^\d+\.\d KB\/s$/.test(findChild(card, "byteRate").text));
        verify(findChild(card, "byteRate").text !== "0.0 KB/s");
    }

    function test_followsTheLastLine() {
        const card = make(cards);
        log(100);
        tryVerify(() => rowsInSight(listOf(card)).pop() === "ligne 100");
    }

    function test_followsTheLastLineAlsoWhereOthersLeaveAtTheFront() {
        const card = make(cards);
        for (let batch = 1; batch <= 30; ++batch) {
            for (let i = 1; i <= 50; ++i)
                bench.logQuietly("SYS", "ligne " + batch + "." + i);
            bench.advance(200);
            tryVerify(() => rowsInSight(listOf(card)).pop() === "ligne " + batch + ".50");
            verify(rowsInSight(listOf(card)).length >= Math.floor(listOf(card).rowsInSight));
        }
    }

    function test_showsTheLastLineWhenOpenedLate() {
        log(900);
        const card = make(cards);
        tryVerify(() => rowsInSight(listOf(card)).pop() === "ligne 900");
    }

    function test_keepsTheLinesUnderTheReadersEyesUntilTheyAreGone() {
        const card = make(cards);
        const list = listOf(card);
        log(600);
        tryVerify(() => list.atEnd);
        mouseWheel(list, 50, 50, 0, 30 * 120);
        const before = rowsInSight(list);
        verify(before[0] !== "ligne 1");
        log(200, "neu");
        compare(rowsInSight(list), before);
        log(200, "neu");
        verify(!list.atEnd);
        log(200, "neu");
        verify(rowsInSight(list).every(each => each === "neu"));
    }

    function test_followsAgainWhenScrolledToTheEnd() {
        const card = make(cards);
        const list = listOf(card);
        log(100);
        tryVerify(() => list.atEnd);
        mouseWheel(list, 50, 50, 0, 120);
        log(1, "neu");
        verify(!list.atEnd);
        press(card, "Dernières lignes");
        tryVerify(() => rowsInSight(list).pop() === "neu");
        log(1, "dernier");
        tryVerify(() => rowsInSight(list).pop() === "dernier");
    }

    function test_pausesAndResumes() {
        const card = make(cards);
        const list = listOf(card);
        log(50);
        tryVerify(() => list.atEnd);
        press(card, "Pause");
        verify(bench.simulator.consolePaused);
        const before = rowsInSight(list);
        log(3);
        bench.set("network.tcp", false); // something else that changes
        bench.advance(50);
        compare(rowsInSight(list), before);
        verify(shows(card, "3 lignes manquées"));
        press(card, "Reprendre");
        verify(!bench.simulator.consolePaused);
        verify(control(card, "Pause"));
        log(1, "neu");
        tryVerify(() => rowsInSight(list).pop() === "neu");
        compare(rowsInSight(list).slice(-2), ["3 lignes manquées pendant la pause", "neu"]);
    }

    function test_clearsWhilePausedAndFollowsAfterwards() {
        const card = make(cards);
        const list = listOf(card);
        log(50);
        press(card, "Pause");
        press(card, "Clear");
        compare(rowsInSight(list), []);
        press(card, "Reprendre");
        log(40);
        tryVerify(() => rowsInSight(list).pop() === "ligne 40");
    }

    function test_copiesEverythingAndSaysSo() {
        const card = make(cards);
        log(2);
        press(card, "Copier");
        verify(/^\d\d:\d\d:\d\d SYS > ligne 1\n\d\d:\d\d:\d\d SYS > ligne 2$/.test(bench.clipboard()));
        compare(control(card, "Copier").Accessible.description, "copié");
    }

    /// Drags from one row and character to another.
    function drag(list: Item, fromRow: int, fromColumn: int, toRow: int, toColumn: int) {
        const x = column => Pel.consoleTextX + column * list.digitWidth;
        const y = row => (row + 0.5) * list.rowHeight;
        mousePress(list, x(fromColumn), y(fromRow));
        mouseMove(list, x(toColumn), y(toRow));
        mouseRelease(list, x(toColumn), y(toRow));
    }

    function test_copiesCharactersOfOneLine() {
        const card = make(cards);
        const list = listOf(card);
        log(3, "$IIHDT,123.4,T*29");
        drag(list, 1, 7, 1, 12);
        keySequence(StandardKey.Copy);
        compare(bench.clipboard(), "123.4");
    }

    function test_copiesAFieldPickedWithTwoClicks() {
        const card = make(cards);
        const list = listOf(card);
        log(3, "$IIHDT,123.4,T*29");
        mouseDoubleClickSequence(list, Pel.consoleTextX + 9 * list.digitWidth, 8);
        keySequence(StandardKey.Copy);
        compare(bench.clipboard(), "123.4");
    }

    function test_copiesTheTextsOfSelectedLinesAndInFullWithTheButton() {
        const card = make(cards);
        const list = listOf(card);
        log(5);
        drag(list, 1, 3, 3, 1);
        keySequence(StandardKey.Copy);
        compare(bench.clipboard(), "ligne 2\nligne 3\nligne 4");
        press(card, "Copier");
        verify(/^\S+ SYS > ligne 2\n\S+ SYS > ligne 3\n\S+ SYS > ligne 4$/.test(bench.clipboard()), bench.clipboard());
    }

    function test_wrapsLongLinesAndCopiesThemWhole() {
        const card = make(cards);
        const list = listOf(card);
        const text = "!AIVDM,2,1,1,A,53IAaPh00001HUHE:20thF10Dr0PDp@F22222216:`<7740Ht0000000000000000000,0*5B".repeat(2);
        log(1, text);
        const rows = rowsInSight(list);
        verify(rows.length > 1);
        compare(rows.join(""), text);
        each(list, item => verify(item.objectName !== "text" || item.x + item.implicitWidth <= list.width, item.text));
        drag(list, 0, list.model.columns - 2, 1, 2);
        keySequence(StandardKey.Copy);
        compare(bench.clipboard(), text.substr(list.model.columns - 2, 4));
        mouseDoubleClickSequence(list, Pel.consoleTextX + 2, 8);
        mouseClick(list, Pel.consoleTextX + 2, 8); // a third time
        keySequence(StandardKey.Copy);
        compare(bench.clipboard(), text);
    }

    function test_selectsWithTheArrows() {
        const card = make(cards);
        const list = listOf(card);
        log(50);
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare([list.selection.first, list.selection.last], [48, 49]);
        keyClick(Qt.Key_End);
        verify(list.selection.isEmpty);
    }

    function test_staysPutWhileSomethingIsSelected() {
        const card = make(cards);
        const list = listOf(card);
        log(100);
        tryVerify(() => list.atEnd);
        drag(list, 2, 0, 2, 4);
        log(20);
        verify(!list.atEnd);
        keyClick(Qt.Key_End);
        tryVerify(() => list.atEnd);
    }

    function test_goesOnFollowingAfterAMereClick() {
        const card = make(cards);
        const list = listOf(card);
        log(100);
        mouseClick(list, Pel.consoleTextX + 20, 30);
        log(1, "neu");
        tryVerify(() => rowsInSight(list).pop() === "neu");
    }

    function test_showsOnlyWhatPassesTheFilter() {
        const card = make(cards);
        const list = listOf(card);
        bench.log("SYS", "Simulation démarrée");
        for (const transport of ["TCP", "UDP"]) {
            bench.log(transport, "$GPRMC,120000.00,A*00");
            bench.log(transport, "!AIVDM,1,1,,A,13RMCb@P00,0*00");
        }
        press(card, "TCP");
        compare(rowsInSight(list), ["$GPRMC,120000.00,A*00", "!AIVDM,1,1,,A,13RMCb@P00,0*00"]);
        press(card, "Tout");
        const words = findChild(card, "words");
        words.forceActiveFocus();
        for (const letter of "RMC")
            keyClick(letter);
        compare(rowsInSight(list), ["$GPRMC,120000.00,A*00", "$GPRMC,120000.00,A*00"]);
        bench.log("UDP", "$GPRMC,neu");
        compare(rowsInSight(list).pop(), "$GPRMC,neu");
        keyClick(Qt.Key_Escape);
        compare(words.text, "");
        compare(rowsInSight(list).length, 6);
    }

    function test_isAsHighAsTheViewAllows_data() {
        return [{view: 300, list: Pel.consoleHeight}, {view: 1400, list: 1200}];
    }

    function test_isAsHighAsTheViewAllows(data) {
        const card = make(cards, {viewHeight: data.view, width: 1000});
        verify(listOf(card).height >= data.list - 2 * Pel.consolePadding);
        verify(card.height <= Math.max(data.view, 900));
    }

    function test_restoresEveryFault() {
        const card = make(cards);
        verify(!control(card, "Tout rétablir").enabled);
        bench.set("faults.stop-stream", true);
        bench.set("faults.latency", 50);
        compare(bench.settings.faultsText, "2 pannes actives");
        press(card, "Tout rétablir");
        compare(bench.value("faults.stop-stream"), "false");
        compare(bench.value("faults.latency"), "0");
        compare(bench.settings.faultsText, "");
    }

    function test_switchesEveryFault() {
        const card = make(cards);
        verify(shows(card, "Test de robustesse"));
        const faults = [["Couper le flux", "stop-stream"], ["Couper le GPS", "no-gps"], ["Couper le vent", "no-wind"], ["Couper l'AIS", "no-ais"], ["Checksum invalide", "bad-checksum"], ["Déconnexions aléatoires", "disconnections"]];
        for (const [label, name] of faults) {
            press(card, label);
            compare(bench.value("faults." + name), "true", label);
            bench.set("faults." + name, false);
            verify(!control(card, label).checked, label);
        }
    }

    function test_stepsLatencyAndLoss() {
        const card = make(cards);
        const latency = control(card, "Latence");
        latency.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        compare(bench.value("faults.latency"), "50");
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Up);
        compare(bench.value("faults.latency"), "2000");
        verify(shows(card, "2000 ms"));
        keyClick(Qt.Key_Home);
        keyClick(Qt.Key_Down);
        compare(bench.value("faults.latency"), "0");
        const loss = control(card, "Perte de paquets");
        mouseClick(loss, loss.width - 10, loss.height / 2);
        compare(bench.value("faults.loss"), "5");
        verify(shows(card, "5 %"));
        loss.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_PageUp);
        compare(bench.value("faults.loss"), "55");
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Up);
        compare(bench.value("faults.loss"), "100");
        for (let i = 0; i < 25; ++i)
            keyClick(Qt.Key_Down);
        compare(bench.value("faults.loss"), "0");
    }

    function test_dropsTheClientsWhileRunningOnly() {
        const card = make(cards);
        verify(!control(card, "Lâcher les clients TCP").enabled);
        bench.set("faults.stop-stream", true); // nothing but this to read
        bench.simulator.start();
        waitForRendering(card);
        press(card, "Lâcher les clients TCP");
        compare(bench.dropAllClientsCalls(), 1);
        bench.advance(200);
        tryVerify(() => shows(card, "Clients TCP lâchés"));
    }
}
