import QtQuick
import Tidewright

WindowCase {
    name: "Components"

    Component {
        id: cards

        Card {
            title: "Titre"
            systemImage: "gearshape"
            note: "26 msg/s"

            BodyText {
                text: "Contenu"
            }
        }
    }
    Component {
        id: labels

        SectionLabel {
            text: "Rubrique"
        }
    }
    Component {
        id: tiles

        StatTile {
            width: 160
            label: "Profondeur"
            value: "12.0"
            unit: "m"
        }
    }
    Component {
        id: dots

        Dot {
            pulsing: false
        }
    }
    Component {
        id: primary

        PrimaryButtonStyle {
            property int presses: 0

            text: "Partir"
            onClicked: ++presses
        }
    }
    Component {
        id: ghost

        GhostButtonStyle {
            property int presses: 0

            text: "Partir"
            onClicked: ++presses
        }
    }

    function test_aCardShowsItsTitleNoteAndContent() {
        const card = make(cards);
        for (const each of ["Titre", "26 msg/s", "Contenu"])
            verify(shows(card, each), each);
        compare(card.Accessible.name, "Titre");
    }

    function test_aSectionLabelIsAHeading() {
        compare(make(labels).Accessible.role, Accessible.Heading);
    }

    function test_aTileTellsItsValueToScreenReaders() {
        const tile = make(tiles);
        compare(tile.Accessible.name, "Profondeur");
        compare(tile.Accessible.description, "12.0 m");
    }

    function test_aTilesDigitsAreOfOneWidth() {
        const tile = make(tiles);
        const width = tile.implicitWidth;
        tile.value = "11.1";
        compare(tile.implicitWidth, width);
    }

    function test_aTilesDegreesAreAsLargeAsItsDigits() {
        const tile = make(tiles, {value: "40", unit: "° tribord"});
        const sizes = {};
        each(tile, child => {
            if (child.visible && child.text)
                sizes[child.text] = child.font.pixelSize;
        });
        compare(sizes["40°"], Pel.valueSize);
        compare(sizes["tribord"], Pel.captionSize);
        compare(tile.Accessible.description, "40 ° tribord");
    }

    function test_aDotPulsesOnlyWhenToldTo() {
        const dot = make(dots);
        verify(!dot.on);
        dot.pulsing = true;
        verify(dot.on);
        tryCompare(dot, "on", false, 2 * Pel.pulseInterval);
        dot.pulsing = false;
        verify(!dot.on);
    }

    function test_buttonsArePressedWithMouseSpaceAndEnter_data() {
        return [{tag: "filled", button: primary}, {tag: "outlined", button: ghost}];
    }

    function test_buttonsArePressedWithMouseSpaceAndEnter(data) {
        const button = make(data.button);
        button.forceActiveFocus(Qt.TabFocusReason);
        verify(button.visualFocus);
        keyClick(Qt.Key_Space);
        keyClick(Qt.Key_Return);
        keyClick(Qt.Key_Enter);
        mouseClick(button);
        compare(button.presses, 4);
        button.enabled = false;
        mouseClick(button);
        compare(button.presses, 4);
    }
}
