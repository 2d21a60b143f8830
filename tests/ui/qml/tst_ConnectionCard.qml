import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "ConnectionCard"

    Component {
        id: cards

        ConnectionCard {
            width: 460
            settings: root.bench.settings
            simulator: root.bench.simulator
            copied: false
        }
    }

    function test_invitesToStart() {
        const card = make(cards);
        verify(shows(card, "Démarrez la simulation pour émettre le réseau NMEA. L'iPhone pourra alors le détecter et lire les données."));
        verify(!shows(card, "Adresse IP"));
    }

    function test_showsTheAddressWhileRunning() {
        const card = make(cards);
        bench.simulator.start();
        for (const each of ["Adresse IP", "192.168.1.37", "Port TCP", "Port UDP", "2000", "Copier l'adresse", "en attente de connexion"])
            verify(shows(card, each), each);
    }

    function test_showsWhoIsConnected() {
        const card = make(cards);
        bench.simulator.start();
        bench.connectClients(["10.0.0.2"]);
        verify(shows(card, "1 client : 10.0.0.2"));
        bench.connectClients(["10.0.0.2", "10.0.0.3", "10.0.0.4"]);
        verify(shows(card, "3 clients connectés"));
        bench.set("network.tcp", false);
        bench.advance(50);
        verify(shows(card, "UDP broadcast"));
    }

    function test_unfoldsEveryClientAndDropsTheOneThatItIsToldTo() {
        const card = make(cards);
        bench.simulator.start();
        verify(!shows(card, "Déconnecter"));
        bench.connectClients(["10.0.0.2", "10.0.0.3"]);
        waitForRendering(card);
        press(card, "Détail des clients");
        verify(shows(card, "10.0.0.3"));
        bench.advance(64000);
        verify(shows(card, "depuis 1 min 04 s · 0 o reçus"));
        waitForRendering(card);
        let second = null;
        each(card, item => {
            if (item.text === "Déconnecter" && item.Accessible.description === "10.0.0.3")
                second = item;
        });
        mouseClick(second);
        compare(bench.droppedClients(), [2]);
    }

    function test_keepsTheKeyboardOnAClientWhileOthersComeAndGo() {
        const card = make(cards);
        bench.simulator.start();
        bench.connectClients(["10.0.0.2"]);
        press(card, "Détail des clients");
        const button = control(card, "Déconnecter");
        button.forceActiveFocus(Qt.TabFocusReason);
        bench.connectClients(["10.0.0.2", "10.0.0.3"]);
        bench.advance(2000);
        verify(button.activeFocus);
    }

    function test_copiesTheAddressAndSaysSoForAMoment() {
        const card = make(cards);
        bench.simulator.start();
        waitForRendering(card);
        press(card, "Copier l'adresse");
        compare(bench.clipboard(), "192.168.1.37");
        verify(card.copied);
        tryCompare(card, "copied", false);
    }
}
