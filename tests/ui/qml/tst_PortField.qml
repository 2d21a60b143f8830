import QtQuick
import Tidewright

WindowCase {
    name: "PortField"

    Component {
        id: fields

        PortField {
            label: "Port TCP"
            setting: root.bench.config.tcpPort
            valid: root.bench.config.isPort(text)
            onEntered: text => root.bench.config.enterTcpPort(text)
        }
    }

    id: root

    function enter(field: Item, text: string) {
        field.forceActiveFocus();
        field.selectAll();
        for (const each of text)
            keyClick(each);
        keyClick(Qt.Key_Return);
    }

    function test_takesAPort_data() {
        return [{text: "0"}, {text: "10110"}, {text: "65535"}];
    }

    function test_takesAPort(data) {
        const field = make(fields);
        enter(field, data.text);
        compare(bench.config.tcpPort, data.text);
        compare(field.text, data.text);
    }

    function test_returnsToTheLastValue_data() {
        return [{text: "65536"}, {text: "12a"}, {text: "-1"}, {text: "2 0"}];
    }

    function test_returnsToTheLastValue(data) {
        const field = make(fields);
        enter(field, data.text);
        compare(bench.config.tcpPort, "2000");
        compare(field.text, "2000");
    }

    function test_warnsWhileNoPortIsTyped() {
        const field = make(fields);
        field.forceActiveFocus();
        field.selectAll();
        keyClick("x");
        verify(Qt.colorEqual(field.color, Pel.danger));
        keyClick(Qt.Key_Escape);
        compare(field.text, "2000");
        verify(Qt.colorEqual(field.color, Pel.ink));
    }

    function test_followsThePreset() {
        const field = make(fields);
        enter(field, "1");
        bench.config.apply("miniplex");
        compare(field.text, "10110");
    }
}
