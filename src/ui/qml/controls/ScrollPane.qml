import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Window
import Tidewright

/// Its one child, centred, scrolling up and down, never beyond its ends. What gets the keyboard
/// other than by the mouse is brought into sight.
Flickable {
    id: root

    default property alias content: column.data
    property Item growing: null

    /// Brings `item` into sight, by no more than it takes; its upper end, where it is too high.
    function show(item: Item) {
        const top = item.mapToItem(column, 0, 0).y;
        const bottom = top + item.height + 2 * Pel.margin;
        const wanted = Math.min(Math.max(contentY, bottom - height), top);
        contentY = Math.max(0, Math.min(wanted, contentHeight - height));
    }

    /// The same, until `item` has the height that it is about to take.
    function showGrown(item: Item) {
        growing = item;
        settle.restart();
    }

    function contains(item: Item): bool {
        for (let each = item; each; each = each.parent)
            if (each === column)
                return true;
        return false;
    }

    contentHeight: column.height + 2 * Pel.margin
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onHeightChanged: returnToBounds()
    onContentHeightChanged: returnToBounds()

    Item {
        id: column

        x: Math.round((root.width - width) / 2)
        y: Pel.margin
        width: Math.min(root.width - 2 * Pel.margin, Pel.contentWidth)
        height: childrenRect.height
    }

    ScrollBar.vertical: ScrollMark {}

    Timer {
        id: settle

        interval: Pel.settleInterval
        onTriggered: root.growing = null
    }
    Connections {
        target: root.growing

        function onHeightChanged() {
            Qt.callLater(root.show, root.growing);
        }
    }

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem;
            if (item && item.focusReason !== Qt.MouseFocusReason && root.contains(item))
                root.show(item);
        }
    }
}
