import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "StepperRow"

    readonly property NumberSetting latency: bench ? bench.settings.number("faults.latency") : null

    Component {
        id: rows

        StepperRow {
            width: 300
            setting: root.latency
        }
    }

    function test_stepsWithinItsRange() {
        latency.value = 1900;
        const row = make(rows);
        const stepper = findChild(row, "stepper");
        for (const expected of [1950, 2000, 2000]) {
            mouseClick(stepper, stepper.width - 10, stepper.height / 2);
            compare(latency.value, expected);
        }
        latency.value = 100;
        for (const expected of [50, 0, 0]) {
            mouseClick(stepper, 10, stepper.height / 2);
            compare(latency.value, expected);
        }
    }

    function test_stepsUnderTheKeyboard() {
        const row = make(rows);
        findChild(row, "stepper").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        compare(latency.value, 50);
        verify(shows(row, "50 ms"));
    }
}
