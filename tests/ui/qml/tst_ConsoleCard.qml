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
            failure: root.bench.failure
            simulator: root.bench.simulator
            open: true
        }
    }
    Component {
        id: rows

        ConsoleRow {
            number: 1
            time: "12:00:00"
            text: ""
            selected: false
        }
    }

    function log(count: int) {
        for (let i = 0; i < count; ++i)
            bench.log("SYS", "ligne");
    }

    function test_coloursTheTransport() {
        const row = make(rows, {transport: "TCP"});
        const expected = {TCP: Pel.brand, UDP: Pel.cyan, SYS: Pel.warn, tcp: Pel.inkMuted, ERR: Pel.inkMuted};
        for (const transport in expected)
            verify(Qt.colorEqual(row.tone(transport), expected[transport]), transport);
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
        const list = findChild(card, "consoleList");
        log(100);
        tryVerify(() => list.atYEnd);
        compare(list.count, 100);
    }

    function test_pausesAndResumes() {
        const card = make(cards);
        const list = findChild(card, "consoleList");
        log(50);
        tryVerify(() => list.atYEnd);
        press(card, "Pause");
        verify(bench.simulator.consolePaused);
        log(1);
        compare(list.count, 50);
        press(card, "Reprendre");
        verify(!bench.simulator.consolePaused);
        verify(control(card, "Pause"));
        log(1);
        compare(list.count, 51);
        tryVerify(() => list.atYEnd);
    }

    function test_clearsWhilePausedAndFollowsAfterwards() {
        const card = make(cards);
        const list = findChild(card, "consoleList");
        log(50);
        press(card, "Pause");
        press(card, "Clear");
        compare(list.count, 0);
        press(card, "Reprendre");
        log(40);
        tryVerify(() => list.atYEnd && list.count === 40);
    }

    function test_copiesEverything() {
        const card = make(cards);
        log(2);
        press(card, "Copier");
        verify(/^\d\d:\d\d:\d\d SYS > ligne\n\d\d:\d\d:\d\d SYS > ligne$/.test(bench.clipboard()));
    }

    function test_copiesSelectedRows() {
        const card = make(cards);
        const list = findChild(card, "consoleList");
        log(50);
        tryVerify(() => list.atYEnd);
        mousePress(list, 50, 30);
        mouseMove(list, 50, 64);
        mouseRelease(list, 50, 64);
        keySequence(StandardKey.Copy);
        compare(bench.clipboard().split("\n").length, 3);
    }

    function test_selectsWithTheArrows() {
        const card = make(cards);
        const list = findChild(card, "consoleList");
        log(50);
        list.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up, Qt.ShiftModifier);
        compare([list.selection.first, list.selection.last], [48, 49]);
        keyClick(Qt.Key_End);
        verify(list.selection.isEmpty);
    }

    function test_staysPutWhileRowsAreSelected() {
        const card = make(cards);
        const list = findChild(card, "consoleList");
        log(100);
        tryVerify(() => list.atYEnd);
        mouseClick(list, 50, 50);
        log(20);
        tryVerify(() => !list.atYEnd);
        keyClick(Qt.Key_End);
        tryVerify(() => list.atYEnd);
    }

    function test_switchesEveryFault() {
        const card = make(cards);
        verify(shows(card, "Test de robustesse"));
        const faults = [["Couper le flux", "stopStream"], ["Couper le GPS", "disableGPS"], ["Couper le vent", "disableWind"], ["Couper l'AIS", "disableAIS"], ["Checksum invalide", "invalidChecksum"], ["Déconnexions aléatoires", "randomDisconnections"]];
        for (const [label, property] of faults) {
            press(card, label);
            verify(bench.failure[property], label);
            bench.failure[property] = false;
            verify(!control(card, label).checked, label);
        }
    }

    function test_stepsLatencyAndLoss() {
        const card = make(cards);
        const latency = control(card, "Latence");
        compare([latency.from, latency.to, latency.stepSize], [0, 2000, 50]);
        latency.value = 2500;
        compare(bench.failure.latencyMs, 2000);
        verify(shows(card, "2000 ms"));
        const loss = control(card, "Perte de paquets");
        compare([loss.from, loss.to, loss.stepSize], [0, 100, 5]);
        loss.increase();
        compare(bench.failure.packetLossPercent, 5);
        verify(shows(card, "5 %"));
    }

    function test_dropsTheClientsWhileRunningOnly() {
        const card = make(cards);
        verify(!control(card, "Lâcher les clients TCP").enabled);
        bench.simulator.start();
        waitForRendering(card);
        press(card, "Lâcher les clients TCP");
        compare(bench.dropAllClientsCalls(), 1);
        bench.advance(50);
        tryVerify(() => shows(card, "Clients TCP lâchés"));
    }
}
