import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "InstrumentsCard"

    Component {
        id: cards

        InstrumentsCard {
            width: 460
            engine: root.bench.engine
            simulator: root.bench.simulator
        }
    }

    function test_showsWhatTheBoatDoes() {
        bench.engine.mode = "manual";
        bench.engine.manual.sog = 7.5;
        bench.engine.manual.heading = 42;
        bench.engine.manual.windAngle = -110;
        bench.engine.manual.depth = 8.5;
        bench.simulator.start();
        bench.advance(1200);
        const card = make(cards);
        for (const each of ["Vitesse fond", "Route fond", "Vit. surface", "Vent app.", "Profondeur", "7.5 nd", "42 °", "15.0 nd 110 ° bâbord", "8.5 m"])
            verify(shows(card, each), each);
        verify(texts(card).some(each => /^\d+ msg\/s$/.test(each) && each !== "0 msg/s"));
        verify(texts(card).some(each => /^-?\d+\.\d{5}, -?\d+\.\d{5}$/.test(each)));
    }
}
