import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "ManualSliderRow"

    Component {
        id: rows

        ManualSliderRow {
            width: 300
            label: "Vitesse"
            value: 6
            from: 0
            to: 20
            step: 0.5
            unit: "nd"
            format: "%.1f"
            onEdited: edit => value = edit
        }
    }

    function test_showsItsValueWithUnit() {
        const row = make(rows);
        verify(shows(row, "6.0 nd"));
        compare(findChild(row, "slider").Accessible.name, "Vitesse");
        compare(findChild(row, "slider").Accessible.description, "6.0 nd");
    }

    function test_reportsWhatTheUserSetsAndFollowsTheValue() {
        const row = make(rows);
        const slider = findChild(row, "slider");
        mouseClick(slider, slider.width - 1, slider.height / 2);
        compare(row.value, 20);
        row.value = 5;
        compare(slider.value, 5);
    }

    function test_reportsAValueSetByAssistiveTechnology() {
        const row = make(rows);
        findChild(row, "slider").value = 12.5;
        compare(row.value, 12.5);
    }

    function test_movesByItsStepUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "slider").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(row.value, 6.5);
        verify(findChild(row, "slider").visualFocus);
    }

    function test_movesByTenStepsAndToTheEndsUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "slider").forceActiveFocus(Qt.TabFocusReason);
        for (const [key, value] of [[Qt.Key_PageUp, 11], [Qt.Key_PageUp, 16], [Qt.Key_PageUp, 20], [Qt.Key_PageDown, 15], [Qt.Key_Home, 0], [Qt.Key_PageDown, 0], [Qt.Key_End, 20]]) {
            keyClick(key);
            compare(row.value, value);
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
        compare(row.value, data.value);
        compare(findChild(row, "number").problem, "");
    }

    function test_saysWhatIsWrongWithANumber_data() {
        return [{text: "21"}, {text: "-1"}, {text: "vite"}, {text: "1e1"}, {text: ""}];
    }

    function test_saysWhatIsWrongWithANumber(data) {
        const row = make(rows);
        type(row, data.text);
        compare(row.value, 6);
        verify(shows(row, "Un nombre de 0.0 à 20.0 nd"));
        keyClick(Qt.Key_Escape);
        verify(!shows(row, "Un nombre de"));
        compare(findChild(row, "number").text, "6.0 nd");
    }

    function test_fillsTheTrackFromZeroWhereZeroLiesWithin() {
        const row = make(rows, {from: -20, value: 0});
        const slider = findChild(row, "slider");
        const filled = () => slider.background.children[0].children[0];
        verify(filled().width < 1);
        row.value = -10;
        verify(Math.abs(filled().x + filled().width - slider.width / 2) <= 1);
        row.value = 10;
        verify(Math.abs(filled().x - slider.width / 2) <= 1);
        verify(filled().width > slider.width / 5);
    }
}
