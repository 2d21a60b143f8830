import QtQuick
import QtTest
import Tidewright

WindowCase {
    id: root

    name: "InstrumentsCard"
    width: 700

    Component {
        id: cards

        InstrumentsCard {
            width: 500
            engine: root.bench.engine
            simulator: root.bench.simulator
        }
    }
    SignalSpy {
        id: paintings

        signalName: "described"
    }

    /// The named picture in a card that is shown.
    function picture(card: Item, name: string): var {
        const found = findChild(card, name);
        verify(found, name);
        return found;
    }

    function milesAcross(card: Item): real {
        return parseFloat(/([\d.]+) NM d'ouest/.exec(picture(card, "chart").description)[1]);
    }

    /// The rectangle, within `item`, around what is of `colour`, or nearly; null where there is none. Looks at
    /// every other pixel.
    function extent(item: Item, colour: color): var {
        const image = grabImage(root);
        const from = item.mapToItem(root, 0, 0);
        const near = (part, wanted) => Math.abs(part - 255 * wanted) < 12;
        let found = null;
        for (let y = 0; y < item.height; y += 2)
            for (let x = 0; x < item.width; x += 2)
                if (near(image.red(from.x + x, from.y + y), colour.r) && near(image.green(from.x + x, from.y + y), colour.g) && near(image.blue(from.x + x, from.y + y), colour.b))
                    found = found ? {left: Math.min(found.left, x), right: Math.max(found.right, x), top: Math.min(found.top, y), bottom: Math.max(found.bottom, y)} : {left: x, right: x, top: y, bottom: y};
        return found;
    }

    function test_showsWhatTheBoatDoes() {
        bench.set("boat.mode", "manual");
        bench.set("manual.speed", 7.5);
        bench.set("manual.heading", 42);
        bench.set("manual.wind-angle", -110);
        bench.set("manual.depth", 8.5);
        bench.simulator.start();
        bench.advance(1200);
        const card = make(cards);
        for (const each of ["Vitesse fond", "Route fond", "Vit. surface", "Vent app.", "Profondeur", "7.5 nd", "42 °", "15.0 nd 110 ° bâbord", "8.5 m"])
            verify(shows(card, each), each);
        verify(texts(card).some(each => /^\d+ msg\/s$/.test(each) && each !== "0 msg/s"));
        verify(texts(card).some(each => /^-?\d+\.\d{5}, -?\d+\.\d{5}$/.test(each)));
    }

    function test_drawsTheBoatInTheMiddleAndAVesselWhereSheIs() {
        const card = make(cards);
        bench.putVessel("IROISE", 3000, -1500);
        const chart = picture(card, "chart");
        tryVerify(() => extent(chart, Pel.cyan) !== null);
        const vessel = extent(chart, Pel.cyan);
        verify(vessel.left > chart.width / 2 && vessel.top > chart.height / 2);
        const boat = extent(chart, Pel.brand);
        verify(boat.left < chart.width / 2 && boat.right > chart.width / 2);
        verify(boat.top < chart.height / 2 && boat.bottom > chart.height / 2);
    }

    function test_drawsTheTrackAsternOfTheBoat() {
        bench.set("boat.mode", "manual");
        bench.set("manual.heading", 100);
        bench.set("manual.speed", 10);
        bench.set("sensors.ais", false);
        bench.simulator.start();
        bench.advance(300000);
        const card = make(cards);
        const chart = picture(card, "chart");
        const track = Pel.mix(Pel.panelAlt, Pel.brand, 0.6);
        tryVerify(() => extent(chart, track) !== null);
        verify(extent(chart, track).left < chart.width / 4);
        verify(extent(chart, track).right < 0.6 * chart.width);
    }

    function test_drawsTheAnchorAndItsCircleOnlyAtAnchor() {
        const card = make(cards);
        const chart = picture(card, "chart");
        verify(extent(chart, Pel.brand));
        verify(!extent(chart, Pel.ok));
        bench.set("boat.mode", "anchor");
        tryVerify(() => extent(chart, Pel.ok) !== null, 3000);
        const circle = extent(chart, Pel.ok);
        verify(circle.right - circle.left > chart.height / 2);
        fuzzyCompare((circle.left + circle.right) / 2, chart.width / 2, 3);
        fuzzyCompare((circle.top + circle.bottom) / 2, chart.height / 2, 3);
    }

    function test_drawsTheWindWhereItComesFrom() {
        bench.set("boat.mode", "manual");
        bench.set("manual.wind-angle", -110);
        bench.simulator.start();
        bench.advance(1200);
        const card = make(cards);
        const dial = picture(card, "dial");
        tryVerify(() => extent(dial, Pel.brand) !== null);
        verify(extent(dial, Pel.brand).right < dial.width / 2);
        compare(dial.description, "Vent apparent 15.0 nd · 110° bâbord ; vent réel 18.0 nd · 128° bâbord");
        verify(shows(card, "18.0 nd · 128° bâbord"));
    }

    function test_tellsWhatItsPicturesShow() {
        const card = make(cards);
        const chart = picture(card, "chart");
        compare(chart.Accessible.role, Accessible.Graphic);
        compare(chart.Accessible.name, "Carte");
        verify(/^Nord en haut, .* d'ouest en est\. Bateau au cap 125°\. Aucun navire AIS\.$/.test(chart.Accessible.description));
        compare(picture(card, "dial").Accessible.role, Accessible.Graphic);
        compare(picture(card, "dial").Accessible.name, "Girouette");
    }

    function test_zoomsWithMouseAndKeyboardUntilToldToFollowAgain() {
        const card = make(cards);
        bench.putVessel("IROISE", 3000, 0);
        tryVerify(() => shows(card, "IROISE"), 3000);
        const automatic = milesAcross(card);
        press(card, "Réduire");
        tryVerify(() => Math.abs(milesAcross(card) - 2 * automatic) <= 0.1);
        control(card, "Agrandir").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Space);
        tryVerify(() => Math.abs(milesAcross(card) - automatic / 2) <= 0.1);
        verify(!shows(card, "en service"));
        press(card, "Cadrage automatique");
        tryVerify(() => milesAcross(card) === automatic);
        compare(control(card, "Cadrage automatique").Accessible.description, "en service");
    }

    function test_zoomsWithTheWheelOnlyWhileControlIsHeld() {
        const card = make(cards);
        bench.putVessel("IROISE", 3000, 0);
        tryVerify(() => shows(card, "IROISE"), 3000);
        const chart = picture(card, "chart");
        const automatic = milesAcross(card);
        mouseWheel(chart, 60, 60, 0, -240);
        verify(chart.automatic);
        mouseWheel(chart, 60, 60, 0, -240, Qt.NoButton, Qt.ControlModifier);
        verify(!chart.automatic);
        tryVerify(() => Math.abs(milesAcross(card) - 2 * automatic) <= 0.1);
    }

    function test_paintsItsPicturesOnceInAWhileHoweverOftenTheBoatMoves_data() {
        return [{tag: "chart"}, {tag: "dial"}];
    }

    function test_paintsItsPicturesOnceInAWhileHoweverOftenTheBoatMoves(data) {
        const card = make(cards);
        const item = picture(card, data.tag);
        paintings.target = item;
        bench.simulator.start();
        tryVerify(() => paintings.count > 0, 3000);
        paintings.clear();
        for (let i = 0; i < 20; ++i) {
            bench.advance(100);
            waitForItemPolished(item);
        }
        verify(paintings.count < 10);
        tryVerify(() => paintings.count > 0, 3000);
    }

    function test_doesNotPaintWhatIsHidden() {
        const card = make(cards);
        const chart = picture(card, "chart");
        chart.fit();
        verify(isPolishScheduled(chart));
        waitForItemPolished(chart);
        card.visible = false;
        bench.putVessel("IROISE", 3000, 0);
        chart.fit();
        verify(!isPolishScheduled(chart));
        card.visible = true;
        tryVerify(() => shows(card, "IROISE"), 3000);
    }

    function test_keepsItsTilesAndDigitsHoweverTallItIs() {
        const card = make(cards);
        const tiles = [];
        each(card, child => {
            if (child.label !== undefined && child.secondUnit !== undefined)
                tiles.push(child);
        });
        compare(tiles.length, 6);
        const heights = tiles.map(tile => tile.height);
        card.height = card.implicitHeight + 400;
        waitForRendering(card);
        compare(tiles.map(tile => tile.height), heights);
    }

    function test_keepsItsPicturesInsideAndApart_data() {
        return [368, 430, 432, 440, 472, 500, 632, 700].map(width => ({tag: width, width: width}));
    }

    function test_keepsItsPicturesInsideAndApart(data) {
        const card = make(cards, {width: data.width});
        for (const height of [card.implicitHeight, card.implicitHeight + 300]) {
            card.height = height;
            waitForItemPolished(card);
            const [chart, dial] = ["chart", "dial"].map(name => {
                const item = picture(card, name);
                return card.mapFromItem(item, 0, 0, item.width, item.height);
            });
            for (const each of [chart, dial]) {
                verify(each.width >= 100 && each.height >= 100);
                verify(each.left >= Pel.margin && each.right <= card.width - Pel.margin);
                verify(each.top > 0 && each.bottom <= card.height - Pel.margin);
            }
            verify(chart.right <= dial.left || chart.bottom <= dial.top);
        }
    }
}
