import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "AdvancedCard"

    Component {
        id: cards

        AdvancedCard {
            width: 460
            settings: root.bench.settings
            simulator: root.bench.simulator
            open: true
        }
    }

    function test_showsAndAppliesEveryPreset() {
        const card = make(cards);
        const presets = [["MiniPlex 3Wi", "10110", "GP"], ["NKE Wifi Box", "50000", "II"], ["Yacht Devices YDWG-02", "1456", "GN"], ["Generic NMEA", "10110", "GP"], ["Custom", "2000", "GP"], ["Digital Yacht iKonvert / WLN10", "2000", "GP"]];
        for (const [label, port, talker] of presets) {
            press(card, label);
            compare(bench.value("network.tcp-port"), port, label);
            compare(bench.value("network.udp-port"), port, label);
            compare(bench.value("network.talker"), talker, label);
            verify(control(card, label).checked, label);
        }
    }

    function test_appliesTheChosenPresetAgain() {
        const card = make(cards);
        bench.set("network.tcp-port", 1);
        press(card, "Digital Yacht iKonvert / WLN10");
        compare(bench.value("network.tcp-port"), "2000");
    }

    function test_marksAPresetThatWasModifiedSince() {
        const card = make(cards);
        verify(!shows(card, "modifié"));
        press(card, "GN");
        verify(shows(card, "modifié"));
        press(card, "GP");
        verify(!shows(card, "modifié"));
        bench.set("network.tcp-port", 1);
        verify(control(card, "Digital Yacht iKonvert / WLN10").Accessible.description.endsWith("· modifié"));
        press(card, "MiniPlex 3Wi");
        verify(!shows(card, "modifié"));
    }

    function test_movesBetweenPresetsWithTheArrowsAndAppliesWithEnter() {
        const card = make(cards, {width: 900});
        control(card, "Digital Yacht iKonvert / WLN10").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Right);
        verify(control(card, "Yacht Devices YDWG-02").activeFocus);
        compare(bench.value("network.preset"), "digital-yacht");
        keyClick(Qt.Key_Return);
        compare(bench.value("network.preset"), "yacht-devices");
        keyClick(Qt.Key_Tab);
        verify(control(card, "TCP").activeFocus);
        keyClick(Qt.Key_Backtab);
        verify(control(card, "Yacht Devices YDWG-02").activeFocus);
    }

    function test_switchesTheOutputs() {
        const card = make(cards);
        press(card, "TCP");
        compare(bench.value("network.tcp"), "false");
        press(card, "UDP");
        compare(bench.value("network.udp"), "false");
    }

    function test_setsTheTalker() {
        const card = make(cards);
        press(card, "GN");
        compare(bench.value("network.talker"), "GN");
    }

    function test_reachesEveryFamilysSwitchAndRate() {
        const card = make(cards);
        const families = [["Position (RMC, GGA)", "gps", "position"], ["Route fond (VTG)", "gps", "course-speed"], ["Cap (HDT, HDG)", "heading", "heading"], ["Vit. surface (VHW)", "boat-speed", "boat-speed"], ["Vent (MWV)", "wind", "wind"], ["Profondeur (DBT, DPT)", "depth", "depth"], ["Température (MTW)", "temperature", "temperature"], ["AIS (VDM)", "ais", "ais"]];
        for (const [label, sensor, rate] of families) {
            bench.set("sensors." + sensor, true);
            press(card, label);
            compare(bench.value("sensors." + sensor), "false", label);
            const slider = control(card, "Cadence : " + label);
            compare([slider.from, slider.to], [0, 20]);
            slider.value = 10;
            compare(bench.value("rates." + rate), "10", label);
            compare(slider.Accessible.description, "10.0 Hz");
            compare(control(card, "Cadence : " + label + " (valeur)").text, "10.0 Hz");
        }
    }

    function test_makesTheFleetAnew() {
        const card = make(cards);
        const stepper = control(card, "Cibles AIS");
        compare([stepper.from, stepper.to, stepper.value], [0, 100, 5]);
        stepper.value = 12;
        compare(bench.value("ais.count"), "12");
        compare(bench.targetCount(), 12);
    }

    function test_locksWhatCannotChangeWhileRunning() {
        const card = make(cards);
        bench.simulator.start();
        verify(shows(card, "Arrêtez l'émission"));
        for (const each of ["NKE Wifi Box", "Port TCP", "Port UDP", "Cap (HDT, HDG)", "Cadence : Cap (HDT, HDG)"])
            verify(!control(card, each).enabled, each);
        for (const each of ["Cibles AIS", "GN"])
            verify(control(card, each).enabled, each);
        bench.simulator.stop();
        verify(control(card, "NKE Wifi Box").enabled);
        verify(!shows(card, "Arrêtez l'émission"));
    }
}
