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
}
