import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "SwitchRow"

    readonly property FlagSetting cut: bench ? bench.settings.flag("faults.stop-stream") : null

    Component {
        id: rows

        SwitchRow {
            width: 300
            setting: root.cut
        }
    }

    function test_isPressedWithTheMouse() {
        const row = make(rows);
        mouseClick(row);
        compare(cut.value, true);
    }

    function test_isPressedWithSpace() {
        const row = make(rows);
        row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(cut.value, true);
    }

    function test_isPressedWithEnter() {
        const row = make(rows);
        row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(cut.value, true);
        keyClick(Qt.Key_Enter);
        compare(cut.value, false);
    }

    function test_followsItsSetting() {
        const row = make(rows);
        mouseClick(row);
        cut.value = false;
        compare(row.checked, false);
    }

    function test_isLockedWhileRunningWhereItActsAtTheNextStart() {
        const row = make(rows, {setting: bench.settings.flag("sensors.wind")});
        verify(row.enabled);
        bench.simulator.start();
        verify(!row.enabled);
        bench.simulator.stop();
        verify(row.enabled);
    }
}
