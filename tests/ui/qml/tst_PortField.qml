import QtQuick
import Tidewright

WindowCase {
    id: root

    name: "PortField"

    Component {
        id: sections

        OutputSection {
            width: 400
            settings: root.bench.settings
            running: false
        }
    }

    function fieldOf(section: Item): Item {
        return control(section, "Port TCP");
    }

    function enter(field: Item, text: string) {
        field.forceActiveFocus();
        field.selectAll();
        for (const each of text)
            keyClick(each);
        keyClick(Qt.Key_Return);
    }

    function test_takesAPort_data() {
        return [{text: "0", port: "0"}, {text: "10110", port: "10110"}, {text: "65535", port: "65535"}, {text: " 2001 ", port: "2001"}];
    }

    function test_takesAPort(data) {
        const field = fieldOf(make(sections));
        enter(field, data.text);
        compare(bench.value("network.tcp-port"), data.port);
        compare(field.text, data.port);
        compare(field.problem, "");
    }

    function test_saysWhatIsWrongWhileItIs_data() {
        return [{text: "65536"}, {text: "12a"}, {text: "-1"}, {text: "2 0"}, {text: " "}];
    }

    function test_saysWhatIsWrongWhileItIs(data) {
        const section = make(sections);
        const field = fieldOf(section);
        enter(field, data.text);
        compare(bench.value("network.tcp-port"), "2000");
        compare(field.text, data.text);
        verify(Qt.colorEqual(field.color, Pel.danger));
        verify(shows(section, "Un port va de 0 à 65535, 2000 reste en vigueur."));
        keyClick(Qt.Key_Escape);
        compare(field.text, "2000");
        verify(Qt.colorEqual(field.color, Pel.ink));
        verify(!shows(section, "Un port va"));
    }

    function test_followsThePreset() {
        const field = fieldOf(make(sections));
        enter(field, "x");
        bench.set("network.preset", "miniplex");
        compare(field.text, "10110");
    }
}
