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

    /// Where in `view` an item can be seen; null where it cannot.
    function seenRect(view: Item, item: Item): var {
        const at = item.mapToItem(view, 0, 0);
        let [left, top, right, bottom] = [at.x, at.y, at.x + item.width, at.y + item.height];
        for (let each = item.parent; each && each !== view; each = each.parent) {
            if (!each.clip)
                continue;
            const edge = each.mapToItem(view, 0, 0);
            left = Math.max(left, edge.x);
            top = Math.max(top, edge.y);
            right = Math.min(right, edge.x + each.width);
            bottom = Math.min(bottom, edge.y + each.height);
        }
        return right - left > 1 && bottom - top > 1 ? {left, top, right, bottom} : null;
    }

    function isInside(item: Item, other: Item): bool {
        for (let each = item; each; each = each.parent)
            if (each === other)
                return true;
        return false;
    }

    /// Pairs of texts and controls of which one is drawn over the other, in words.
    function overlaps(view: Item): var {
        const pieces = [];
        each(view, item => {
            const isControl = item.visualFocus !== undefined || item.editingFinished !== undefined;
            const isText = item.lineCount !== undefined && item.text !== "";
            if (!item.visible || item.allowedToOverlap || !(isControl || isText))
                return;
            const rect = seenRect(view, item);
            if (rect)
                pieces.push({item, rect, name: item.text || item.Accessible.name});
        });
        const found = [];
        for (let i = 0; i < pieces.length; ++i) {
            for (let j = i + 1; j < pieces.length; ++j) {
                const [a, b] = [pieces[i], pieces[j]];
                const width = Math.min(a.rect.right, b.rect.right) - Math.max(a.rect.left, b.rect.left);
                const height = Math.min(a.rect.bottom, b.rect.bottom) - Math.max(a.rect.top, b.rect.top);
                if (width > 1 && height > 1 && !isInside(a.item, b.item) && !isInside(b.item, a.item))
                    found.push(a.name + " / " + b.name);
            }
        }
        return found;
    }

    function press(item: Item, name: string) {
        const found = control(item, name);
        mouseClick(found);
    }
}
