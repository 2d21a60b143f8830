import QtQuick
import Tidewright

WindowCase {
    name: "StepperRow"

    Component {
        id: rows

        StepperRow {
            width: 300
            label: "Latence"
            valueText: value + " ms"
            value: 0
            from: 0
            to: 100
            step: 50
            onEdited: edit => value = edit
        }
    }

    function test_stepsWithinItsRange() {
        const row = make(rows);
        const stepper = findChild(row, "stepper");
        for (const expected of [50, 100, 100]) {
            mouseClick(stepper, stepper.width - 10, stepper.height / 2);
            compare(row.value, expected);
        }
        for (const expected of [50, 0, 0]) {
            mouseClick(stepper, 10, stepper.height / 2);
            compare(row.value, expected);
        }
    }

    function test_stepsUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "stepper").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        compare(row.value, 50);
        verify(shows(row, "50 ms"));
    }
}
