import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "SimulationCard"

    Component {
        id: cards

        SimulationCard {
            width: 460
            engine: root.bench.engine
            settings: root.bench.settings
            actions: root.bench.actions
            simulator: root.bench.simulator
        }
    }

    /// What a row's slider offers.
    function range(card: Item, label: string): var {
        const slider = control(card, label);
        return [slider.from, slider.to, slider.stepSize, slider.value, slider.Accessible.description];
    }

    function test_picksTheMode() {
        const card = make(cards);
        for (const [label, mode] of [["Manuel", "manual"], ["Mouillage", "anchor"], ["Auto", "auto"]]) {
            press(card, label);
            compare(bench.value("boat.mode"), mode);
        }
        bench.set("boat.mode", "anchor");
        verify(control(card, "Mouillage").checked);
    }

    function test_describesTheProgramme() {
        const card = make(cards);
        const described = [["Enchaîné", "sequence", "Près, travers et portant à la suite"], ["Louvoyage", "beat", "Louvoyage au près : bordées"], ["Travers", "reach", "Allures de travers"], ["Portant", "run", "Portant au grand largue"]];
        for (const [label, program, description] of described) {
            press(card, label);
            compare(bench.value("boat.program"), program);
            verify(shows(card, description), description);
        }
    }

    function test_manoeuvresWhileRunningOnly() {
        const card = make(cards);
        verify(!control(card, "Virer de bord").enabled);
        verify(!control(card, "Empanner").enabled);
        bench.simulator.start();
        waitForRendering(card);
        press(card, "Virer de bord");
        bench.advance(1000);
        verify(shows(card, "virement de bord en cours"));
        bench.simulator.stop();
        verify(!control(card, "Virer de bord").enabled);
    }

    function test_gybes() {
        const card = make(cards);
        bench.simulator.start();
        waitForRendering(card);
        press(card, "Empanner");
        bench.advance(1000);
        verify(shows(card, "empannage en cours"));
    }

    function test_choosesTheWind() {
        const card = make(cards);
        verify(shows(card, "Zones de vent de 10–16 nœuds, qui changent toutes les 5 à 10 minutes."));
        const ranges = [["Petit temps", "light", "5–9"], ["Bon vent", "fresh", "17–22"], ["Fort", "strong", "23–30"], ["Brise", "breeze", "10–16"], ["Perso", "custom", "8–18"]];
        for (const [label, preset, winds] of ranges) {
            press(card, label);
            compare(bench.value("wind.preset"), preset);
            verify(shows(card, "Zones de vent de " + winds + " nœuds"), winds);
        }
        compare(range(card, "Vent mini"), [3, 34, 1, 8, "8 nd"]);
        compare(range(card, "Vent maxi"), [4, 35, 1, 18, "18 nd"]);
        control(card, "Vent maxi").value = 25;
        compare(bench.value("wind.high"), "25");
        control(card, "Vent mini").value = 12;
        compare(bench.value("wind.low"), "12");
        verify(shows(card, "Zones de vent de 12–25 nœuds"));
    }

    function test_oneWindPushesTheOther() {
        const card = make(cards);
        press(card, "Perso");
        control(card, "Vent mini").value = 20;
        verify(shows(card, "Zones de vent de 20–21 nœuds"));
        verify(shows(card, "21 nd"));
        control(card, "Vent maxi").value = 10;
        verify(shows(card, "Zones de vent de 9–10 nœuds"));
        verify(shows(card, "9 nd"));
    }

    function test_segmentsAreOfOneWidth() {
        const card = make(cards);
        for (const group of [["Auto", "Manuel", "Mouillage"], ["Enchaîné", "Louvoyage", "Travers", "Portant"], ["Petit temps", "Brise", "Bon vent", "Fort", "Perso"]]) {
            const widths = group.map(each => control(card, each).width);
            verify(Math.max(...widths) - Math.min(...widths) <= 1, group + ": " + widths);
        }
    }

    function test_setsThePerformance() {
        const card = make(cards);
        compare(range(card, "% de polaire"), [70, 115, 1, 100, "100 %"]);
        control(card, "% de polaire").value = 108;
        compare(bench.value("boat.performance"), "108");
        press(card, "Paliers d'équipage");
        compare(bench.value("boat.crew-steps"), "false");
        verify(shows(card, "100 % = la polaire de référence du simulateur."));
    }

    function test_setsEveryManualTarget() {
        const card = make(cards);
        press(card, "Manuel");
        const rows = [["Force du vent", "wind-speed", [0, 50, 1, 15, "15 nd"]], ["Angle du vent", "wind-angle", [-180, 180, 1, 40, "40°"]], ["Vitesse fond", "speed", [0, 20, 0.1, 6, "6.0 nd"]], ["Cap", "heading", [0, 359, 1, 120, "120°"]], ["Profondeur", "depth", [1, 100, 0.5, 12, "12.0 m"]], ["Température de l'eau", "water-temperature", [0, 40, 0.5, 16.5, "16.5 °C"]]];
        for (const [label, field, offered] of rows) {
            compare(range(card, label), offered, label);
            control(card, label).increase();
            fuzzyCompare(Number(bench.value("manual." + field)), offered[3] + offered[2], 1e-9, field);
            bench.set("manual." + field, 9);
            compare(control(card, label).value, 9, label);
        }
    }

    function test_setsEverythingAboutTheAnchor() {
        const card = make(cards);
        press(card, "Mouillage");
        verify(shows(card, "Le bateau évite autour de son ancre. La position, la route et la vitesse fond émises suivent le mouvement simulé."));
        verify(!shows(card, "Amplitude des bascules"));
        verify(!shows(card, "Vitesse de dérapage"));
        waitForRendering(card);
        press(card, "Bascules automatiques du vent");
        compare(bench.value("anchor.shifting-wind"), "true");
        waitForRendering(card);
        press(card, "Ancre qui dérape");
        compare(bench.value("anchor.dragging"), "true");
        verify(shows(card, "Le vent oscille de part et d'autre de la direction choisie sur un cycle de 2 minutes."));
        verify(shows(card, "L'ancre glisse sous le vent ; la trace GPS peut sortir du cercle de mouillage."));
        const rows = [["Direction du vent", "wind-direction", [0, 359, 1, 230, "230°"]], ["Force du vent", "wind-speed", [0, 50, 1, 16, "16 nd"]], ["Amplitude des bascules", "shift-amplitude", [0, 180, 1, 35, "35°"]], ["Longueur de chaîne", "chain-length", [5, 200, 1, 45, "45 m"]], ["Vitesse de dérapage", "drag-speed", [0, 3, 0.1, 0.4, "0.4 nd"]]];
        for (const [label, field, offered] of rows) {
            compare(range(card, label), offered, label);
            control(card, label).increase();
            fuzzyCompare(Number(bench.value("anchor." + field)), offered[3] + offered[2], 1e-9, field);
        }
        verify(shows(card, "Chaîne tendue : le bateau évite près de la limite de la chaîne."));
        press(card, "Chaîne molle");
        compare(bench.value("anchor.chain-taut"), "false");
        verify(shows(card, "Chaîne molle : le bateau reste plus près de l'ancre et réagit plus lentement."));
    }
}
