import QtQuick
import Tidewright

WindowCase {
    name: "SegmentedPicker"

    Component {
        id: pickers

        SegmentedPicker {
            width: 300
            label: "Mode"
            values: ["a", "b", "c"]
            labels: ["Un", "Deux", "Trois"]
            current: "a"
            onPicked: value => current = value
        }
    }

    function test_picksWhatIsPressed() {
        const picker = make(pickers);
        press(picker, "Trois");
        compare(picker.current, "c");
        verify(control(picker, "Trois").checked);
        verify(!control(picker, "Un").checked);
    }

    function test_followsItsCurrentValue() {
        const picker = make(pickers);
        press(picker, "Deux");
        picker.current = "a";
        verify(control(picker, "Un").checked);
        verify(!control(picker, "Deux").checked);
    }

    function test_movesWithTheArrows() {
        const picker = make(pickers);
        control(picker, "Un").forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Right);
        compare(picker.current, "b");
        keyClick(Qt.Key_Left);
        keyClick(Qt.Key_Left);
        compare(picker.current, "a");
    }
}
