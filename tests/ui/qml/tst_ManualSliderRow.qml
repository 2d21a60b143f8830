import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "ManualSliderRow"

    Component {
        id: rows

        ManualSliderRow {
            width: 300
            setting: root.bench.settings.number("manual.speed")
        }
    }

    readonly property NumberSetting speed: bench ? bench.settings.number("manual.speed") : null

    function test_showsItsValueWithUnit() {
        const row = make(rows);
        verify(shows(row, "6.0 nd"));
        compare(findChild(row, "slider").Accessible.name, "Vitesse fond");
        compare(findChild(row, "slider").Accessible.description, "6.0 nd");
    }

    function test_reportsWhatTheUserSetsAndFollowsTheValue() {
        const row = make(rows);
        const slider = findChild(row, "slider");
        mouseClick(slider, slider.width - 1, slider.height / 2);
        compare(speed.value, 20);
        speed.value = 5;
        compare(slider.value, 5);
    }

    function test_reportsAValueSetByAssistiveTechnology() {
        const row = make(rows);
        findChild(row, "slider").value = 12.5;
        compare(speed.value, 12.5);
    }

    function test_movesByItsStepUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "slider").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(speed.value, 6.1);
        verify(findChild(row, "slider").visualFocus);
    }

    function test_movesByTenStepsAndToTheEndsUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "slider").forceActiveFocus(Qt.TabFocusReason);
        for (const [key, value] of [[Qt.Key_PageUp, 7], [Qt.Key_PageUp, 8], [Qt.Key_End, 20], [Qt.Key_PageUp, 20], [Qt.Key_PageDown, 19], [Qt.Key_Home, 0], [Qt.Key_PageDown, 0]]) {
            keyClick(key);
            fuzzyCompare(speed.value, value, 1e-9);
        }
    }

    function type(row: Item, text: string) {
        const number = findChild(row, "number");
        mouseClick(number);
        number.selectAll();
        keyClick(Qt.Key_Backspace);
        for (const each of text)
            keyClick(each);
        keyClick(Qt.Key_Return);
    }

    function test_takesANumberTypedBesideTheSlider_data() {
        return [{text: "12.5", value: 12.5}, {text: "7,5", value: 7.5}, {text: " 3 ", value: 3}, {text: "4 nd", value: 4}, {text: "6.25", value: 6.25}];
    }

    function test_takesANumberTypedBesideTheSlider(data) {
        const row = make(rows);
        type(row, data.text);
        compare(speed.value, data.value);
        compare(findChild(row, "number").problem, "");
    }

    function test_saysWhatIsWrongWithANumber_data() {
        return [{text: "21"}, {text: "-1"}, {text: "vite"}, {text: "1e1"}, {text: ""}];
    }

    function test_saysWhatIsWrongWithANumber(data) {
        const row = make(rows);
        type(row, data.text);
        compare(speed.value, 6);
        verify(shows(row, "Un nombre de 0.0 à 20.0 nd"));
        keyClick(Qt.Key_Escape);
        verify(!shows(row, "Un nombre de"));
        compare(findChild(row, "number").text, "6.0 nd");
    }

    function test_fillsTheTrackFromZeroWhereZeroLiesWithin() {
        const angle = bench.settings.number("manual.wind-angle");
        angle.value = 0;
        const row = make(rows, {setting: angle});
        const slider = findChild(row, "slider");
        const filled = () => slider.background.children[0].children[0];
        verify(filled().width < 1);
        angle.value = -90;
        verify(Math.abs(filled().x + filled().width - slider.width / 2) <= 1);
        angle.value = 90;
        verify(Math.abs(filled().x - slider.width / 2) <= 1);
        verify(filled().width > slider.width / 5);
    }
}
