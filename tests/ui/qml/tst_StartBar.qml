import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "StartBar"

    Component {
        id: bars

        StartBar {
            width: 460
            simulator: root.bench.simulator
        }
    }
    Component {
        id: headers

        HeaderBar {
            width: 460
            simulator: root.bench.simulator
            settings: root.bench.settings
        }
    }

    function test_startsAndStops() {
        const bar = make(bars);
        press(bar, "Démarrer l'émission");
        verify(bench.simulator.isRunning);
        press(bar, "Arrêter l'émission");
        verify(!bench.simulator.isRunning);
    }

    function test_showsTheErrorUntilTheNextStart() {
        const bar = make(bars);
        bench.set("network.tcp", false);
        bench.set("network.udp", false);
        press(bar, "Démarrer l'émission");
        const error = findChild(bar, "lastError");
        compare(error.text, "Activez au moins une sortie (TCP ou UDP).");
        verify(Qt.colorEqual(error.color, Pel.danger));
        bench.set("network.udp", true);
        waitForRendering(bar);
        press(bar, "Démarrer l'émission");
        compare(error.text, "");
        verify(!error.visible);
    }

    function test_saysThatThePortIsTaken() {
        const bar = make(bars);
        bench.simulator.start();
        bench.failListening();
        verify(shows(bar, "Le port TCP 2000 est déjà utilisé"));
        verify(shows(bar, "Démarrer l'émission"));
    }

    function test_theHeaderTellsWhetherItEmits() {
        const header = make(headers);
        verify(shows(header, "Tidewright"));
        verify(shows(header, "Passerelle marine Wi-Fi de test"));
        verify(!findChild(header, "statusDot").pulsing);
        bench.simulator.start();
        verify(findChild(header, "statusDot").pulsing);
        verify(shows(header, "En émission"));
        verify(Qt.colorEqual(findChild(header, "statusDot").color, Pel.ok));
    }

    function test_theHeaderWarnsWhereNothingGetsOut_data() {
        return [{tag: "stream cut", act: () => bench.set("faults.stop-stream", true)}, {tag: "all lost", act: () => bench.set("faults.loss", 100)}, {tag: "no output", act: () => {
                    bench.set("network.tcp", false);
                    bench.set("network.udp", false);
                }}];
    }

    function test_theHeaderWarnsWhereNothingGetsOut(data) {
        const header = make(headers);
        bench.simulator.start();
        data.act();
        bench.advance(50);
        verify(Qt.colorEqual(findChild(header, "statusDot").color, Pel.warn));
        verify(shows(header, "Rien ne part"));
    }

    function test_theHeaderLeadsToTheFaultsThatAreOn() {
        const header = make(headers);
        bench.set("faults.no-gps", true);
        verify(shows(header, "1 panne active"));
        bench.set("faults.latency", 100);
        let asked = 0;
        header.faultsRequested.connect(() => ++asked);
        press(header, "2 pannes actives");
        compare(asked, 1);
        bench.actions.perform("clear-faults");
        verify(!shows(header, "active"));
    }

    function test_noWordOfAMessageStandsAlone_data() {
        return [{width: 380}, {width: 400}, {width: 420}, {width: 700}, {width: 1040}, {width: 1600}];
    }

    function test_noWordOfAMessageStandsAlone(data) {
        const bar = make(bars, {width: data.width});
        bench.simulator.start();
        bench.failListening();
        const message = findChild(bar, "lastError");
        waitForRendering(bar);
        const widths = [];
        message.lineLaidOut.connect(line => widths[line.number] = line.implicitWidth);
        message.forceLayout();
        compare(widths.length, message.lineCount);
        verify(widths.every(each => each <= data.width));
        verify(widths[widths.length - 1] > 0.5 * Math.max(...widths), widths);
    }
}
