import QtQuick
import QtTest
import Tidewright
import TidewrightTest

/// A test of something in the window, on a fresh gateway for each function.
TestCase {
    id: root

    property WindowBench bench: null

    when: windowShown
    visible: true
    width: 480
    height: 1200

    Component {
        id: benches

        WindowBench {}
    }

    function init() {
        failOnWarning(/.?/);
        const last = bench;
        bench = benches.createObject(root); // outlives what the last function made
        if (last)
            last.destroy();
    }

    function make(component: Component, properties: var): var {
        const made = createTemporaryObject(component, root, properties ?? {});
        verify(made);
        waitForRendering(made);
        return made;
    }

    function each(item: Item, visit: var) {
        visit(item);
        for (let i = 0; i < item.children.length; ++i)
            each(item.children[i], visit);
    }

    /// The control with this accessible name.
    function control(item: Item, name: string): var {
        let found = null;
        each(item, child => {
            if (!found && child.Accessible.name === name && (child.visualFocus !== undefined || child.editingFinished))
                found = child;
        });
        verify(found, "no control " + name);
        return found;
    }

    /// Every text in sight, accessible names and descriptions included.
    function texts(item: Item): var {
        const found = [];
        each(item, child => {
            if (child.visible) {
                found.push(child.Accessible.name, child.Accessible.description);
                if (child.text !== undefined)
                    found.push(child.text);
            }
        });
        return found;
    }

    function shows(item: Item, text: string): bool {
        return texts(item).some(each => each.includes(text));
    }

    function press(item: Item, name: string) {
        const found = control(item, name);
        mouseClick(found);
    }
}
