import QtQuick
import Tidewright

WindowCase {
    name: "SwitchRow"

    Component {
        id: rows

        SwitchRow {
            width: 300
            text: "Couper"
            setting: false
            onEdited: value => setting = value
        }
    }

    function test_isPressedWithTheMouse() {
        const row = make(rows);
        mouseClick(row);
        compare(row.setting, true);
    }

    function test_isPressedWithSpace() {
        const row = make(rows);
        row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        compare(row.setting, true);
    }

    function test_isPressedWithEnter() {
        const row = make(rows);
        row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);
        compare(row.setting, true);
        keyClick(Qt.Key_Enter);
        compare(row.setting, false);
    }

    function test_followsItsSetting() {
        const row = make(rows);
        mouseClick(row);
        row.setting = false;
        compare(row.checked, false);
    }
}
