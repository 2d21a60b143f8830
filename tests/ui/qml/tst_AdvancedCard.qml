import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "AdvancedCard"

    Component {
        id: cards

        AdvancedCard {
            width: 460
            config: root.bench.config
            simulator: root.bench.simulator
            open: true
        }
    }

    function test_showsAndAppliesEveryPreset() {
        const card = make(cards);
        const presets = [["MiniPlex 3Wi", "10110", "GP"], ["NKE Wifi Box", "50000", "II"], ["Yacht Devices YDWG-02", "1456", "GN"], ["Generic NMEA", "10110", "GP"], ["Custom", "2000", "GP"], ["Digital Yacht iKonvert / WLN10", "2000", "GP"]];
        for (const [label, port, talker] of presets) {
            press(card, label);
            compare(bench.config.tcpPort, port, label);
            compare(bench.config.udpPort, port, label);
            compare(bench.config.gpsTalker, talker, label);
            verify(control(card, label).checked, label);
        }
    }

    function test_appliesTheChosenPresetAgain() {
        const card = make(cards);
        bench.config.enterTcpPort("1");
        press(card, "Digital Yacht iKonvert / WLN10");
        compare(bench.config.tcpPort, "2000");
    }

    function test_marksAPresetThatWasModifiedSince() {
        const card = make(cards);
        verify(!shows(card, "modifié"));
        press(card, "GN");
        verify(shows(card, "modifié"));
        press(card, "GP");
        verify(!shows(card, "modifié"));
        bench.config.enterTcpPort("1");
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
        compare(bench.config.preset, "digital-yacht");
        keyClick(Qt.Key_Return);
        compare(bench.config.preset, "yacht-devices");
        keyClick(Qt.Key_Tab);
        verify(control(card, "TCP").activeFocus);
        keyClick(Qt.Key_Backtab);
        verify(control(card, "Yacht Devices YDWG-02").activeFocus);
    }

    function test_switchesTheOutputs() {
        const card = make(cards);
        press(card, "TCP");
        verify(!bench.config.tcpEnabled);
        press(card, "UDP");
        verify(!bench.config.udpEnabled);
    }

    function test_setsTheTalker() {
        const card = make(cards);
        press(card, "GN");
        compare(bench.config.gpsTalker, "GN");
    }

    function test_reachesEveryFamilysSwitchAndRate() {
        const card = make(cards);
        const families = [["Position (RMC, GGA)", "gps", "positionHz"], ["Route fond (VTG)", "gps", "courseSpeedHz"], ["Cap (HDT, HDG)", "heading", "headingHz"], ["Vit. surface (VHW)", "boatSpeed", "boatSpeedHz"], ["Vent (MWV)", "wind", "windHz"], ["Profondeur (DBT, DPT)", "depth", "depthHz"], ["Température (MTW)", "temperature", "temperatureHz"], ["AIS (VDM)", "ais", "aisHz"]];
        for (const [label, flag, rate] of families) {
            bench.config[flag] = true;
            press(card, label);
            compare(bench.config[flag], false, label);
            const slider = control(card, "Cadence : " + label);
            compare([slider.from, slider.to], [0, 20]);
            slider.value = 10;
            compare(bench.config[rate], 10, label);
            compare(slider.valueText, "10.0 Hz");
            compare(control(card, "Cadence : " + label + " (valeur)").text, "10.0 Hz");
        }
    }

    function test_makesTheFleetAnew() {
        const card = make(cards);
        const stepper = control(card, "Cibles AIS");
        compare([stepper.from, stepper.to, stepper.value], [0, 100, 5]);
        stepper.value = 12;
        compare(bench.config.aisTargetCount, 12);
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
