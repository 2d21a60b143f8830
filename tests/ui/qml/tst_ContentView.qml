import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "ContentView"
    height: 900

    Component {
        id: views

        ContentView {
            width: 900
            height: 900
            engine: root.bench.engine
            settings: root.bench.settings
            actions: root.bench.actions
            simulator: root.bench.simulator
        }
    }

    /// What a user reads in the window, in one state or another.
    readonly property var userTexts: ["Tidewright", "Passerelle marine Wi-Fi de test",
        "Connectez votre iPhone",
        "Démarrez la simulation pour émettre le réseau NMEA. L'iPhone pourra alors le détecter et lire les données.",
        "Le réseau NMEA émet. Sur l'iPhone (même Wi-Fi que ce Mac), ouvrez PelorinConnect → Réglages → GPS & NMEA → Scanner. Ou saisissez l'adresse ci-dessous.",
        "Adresse IP", "Port TCP", "Port UDP", "Copier l'adresse", "UDP broadcast",
        "en attente de connexion", "1 client : 10.0.0.2", "2 clients connectés",
        "Instruments (en direct)", "Vitesse fond", "Route fond", "Vit. surface", "Vent app.",
        "Profondeur", "0 msg/s", "Auto", "Manuel", "Mouillage", "Enchaîné", "Louvoyage", "Travers",
        "Portant",
        "Près, travers et portant à la suite, avec virements de bord et empannages. Le vent change par grandes zones.",
        "Louvoyage au près : bordées de 2 à 4 minutes, virement de bord à chaque fin de bordée.",
        "Allures de travers (bon plein, travers, largue), sans manœuvre fréquente.",
        "Portant au grand largue : bordées de 2,5 à 5 minutes, empannage à chaque fin de bordée.",
        "Virer de bord", "Empanner",
        "Déclenche immédiatement une manœuvre, avec rotation du cap et perte de vitesse. Une manœuvre déjà en cours doit se terminer avant la suivante.",
        "Force du vent", "Angle du vent", "Cap", "Petit temps", "Brise", "Bon vent", "Fort", "Perso",
        "Vent mini", "Vent maxi",
        "Zones de vent de 10–16 nœuds, qui changent toutes les 5 à 10 minutes.",
        "Performance du bateau", "% de polaire", "Paliers d'équipage",
        "100 % = la polaire de référence du simulateur. Choisissez 90 ou 108 % pour que le bateau ne tombe pas pile sur votre polaire. Les paliers retirent 0 à 6 points sous ce niveau, par périodes de 15 à 30 minutes.",
        "Le bateau évite autour de son ancre. La position, la route et la vitesse fond émises suivent le mouvement simulé.",
        "Direction du vent", "Bascules automatiques du vent", "Amplitude des bascules",
        "Le vent oscille de part et d'autre de la direction choisie sur un cycle de 2 minutes.",
        "Longueur de chaîne", "Chaîne tendue : le bateau évite près de la limite de la chaîne.",
        "Chaîne molle : le bateau reste plus près de l'ancre et réagit plus lentement.",
        "Ancre qui dérape", "Vitesse de dérapage",
        "L'ancre glisse sous le vent ; la trace GPS peut sortir du cercle de mouillage.",
        "Réglages avancés", "Passerelle simulée", "Cibles AIS", "Console NMEA",
        "Démarrer l'émission", "Arrêter l'émission", "0.0 KB/s", "Pause", "Reprendre", "Clear",
        "Copier", "Test de robustesse", "Couper le flux", "Couper le GPS", "Couper le vent",
        "Couper l'AIS", "Checksum invalide", "Déconnexions aléatoires", "Latence", "0 ms",
        "Perte de paquets", "0 %", "Lâcher les clients TCP"]

    function test_showsEveryText() {
        const view = make(views);
        const seen = new Set();
        const look = () => texts(view).forEach(each => seen.add(each));
        look();
        for (const program of bench.settings.choice("boat.program").values) {
            bench.set("boat.program", program);
            look();
        }
        bench.set("wind.preset", "custom");
        look();
        bench.set("boat.mode", "manual");
        look();
        bench.set("boat.mode", "anchor");
        bench.set("anchor.shifting-wind", true);
        bench.set("anchor.dragging", true);
        look();
        bench.set("anchor.chain-taut", false);
        look();
        view.showAdvanced = true;
        view.showConsole = true;
        look();
        bench.simulator.start();
        bench.simulator.consolePaused = true;
        look();
        bench.connectClients(["10.0.0.2"]);
        look();
        bench.connectClients(["10.0.0.2", "10.0.0.3"]);
        look();
        bench.set("network.tcp", false);
        bench.advance(50);
        look();
        for (const each of userTexts)
            verify(seen.has(each), "nowhere: " + each);
    }

    function test_unfoldsItsSections() {
        const view = make(views);
        verify(!view.showAdvanced && !view.showConsole && !view.copied);
        control(view, "Réglages avancés").clicked();
        verify(view.showAdvanced);
        verify(shows(view, "Passerelle simulée"));
        control(view, "Réglages avancés").clicked();
        verify(!view.showAdvanced);
        waitForRendering(view);
        control(view, "Console NMEA").clicked();
        verify(view.showConsole);
    }

    function test_scrollsToWhatItUnfolds() {
        const view = make(views);
        control(view, "Console NMEA").clicked();
        tryVerify(() => control(view, "Lâcher les clients TCP").mapToItem(view, 0, 0).y < view.height - 100);
    }

    function test_keepsTheControlWithTheKeyboardInSight() {
        const view = make(views);
        view.width = 400;
        view.height = 600;
        waitForRendering(view);
        const field = control(view, "Console NMEA");
        field.forceActiveFocus(Qt.TabFocusReason);
        tryVerify(() => {
            const y = field.mapToItem(view, 0, 0).y;
            return y > 60 && y < 520;
        });
    }

    function test_scrollsThePageWithTheWheelOverTheChart() {
        const view = make(views);
        view.height = 600;
        waitForRendering(view);
        const pane = findChild(view, "scrollPane");
        const chart = findChild(view, "chart");
        mouseWheel(chart, 60, 20, 0, -120, Qt.NoButton, Qt.ControlModifier);
        verify(!chart.automatic);
        compare(pane.contentY, 0);
        mouseWheel(chart, 60, 20, 0, -120);
        tryVerify(() => pane.contentY > 0);
    }

    function test_paintsTheChartOnlyWhileItIsInSight() {
        const view = make(views);
        view.height = 700;
        view.showAdvanced = true;
        waitForRendering(view);
        const pane = findChild(view, "scrollPane");
        const chart = findChild(view, "chart");
        chart.fit();
        verify(isPolishScheduled(chart));
        waitForItemPolished(chart);
        pane.contentY = pane.contentHeight - pane.height;
        bench.putVessel("IROISE", 3000, 0);
        chart.fit();
        verify(!isPolishScheduled(chart));
        pane.contentY = 0;
        tryVerify(() => shows(view, "IROISE"), 3000);
    }

    function test_nothingIsWiderThanTheWindow_data() {
        return [{width: 400}, {width: 700}, {width: 800}, {width: 1400}];
    }

    function test_nothingIsWiderThanTheWindow(data) {
        const view = make(views);
        view.showAdvanced = true;
        view.showConsole = true;
        bench.simulator.start();
        view.width = data.width;
        waitForRendering(view);
        each(view, item => {
            if (!item.visible || item.text === undefined || item.text === "" || item.elide)
                return;
            const left = item.mapToItem(view, 0, 0).x;
            verify(left >= 0 && left + Math.min(item.width, item.implicitWidth) <= data.width + 1, item.text);
        });
    }

    function test_tabGoesThroughEveryControlAndComesBack() {
        const view = make(views);
        control(view, "Auto").forceActiveFocus(Qt.TabFocusReason);
        const seen = [];
        for (let i = 0; i < 20; ++i) {
            seen.push(view.Window.activeFocusItem.Accessible.name);
            keyClick(Qt.Key_Tab);
        }
        const expected = ["Auto", "Enchaîné", "Brise", "% de polaire (valeur)", "% de polaire", "Paliers d'équipage", "Réglages avancés", "Console NMEA", "Démarrer l'émission", "Agrandir", "Réduire", "Cadrage automatique", "Auto"];
        compare(seen.slice(0, expected.length), expected);
    }
}
