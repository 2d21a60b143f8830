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
        bench.config.tcpEnabled = false;
        bench.config.udpEnabled = false;
        press(bar, "Démarrer l'émission");
        const error = findChild(bar, "lastError");
        compare(error.text, "Activez au moins une sortie (TCP ou UDP).");
        verify(Qt.colorEqual(error.color, Pel.danger));
        bench.config.udpEnabled = true;
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
    }
}
