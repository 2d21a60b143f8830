import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Window
import Tidewright

/// Its one child, centred, scrolling up and down. The keyboard's control is kept in sight.
Flickable {
    id: root

    default property alias content: column.data
    property Item growing: null

    /// Brings `item` into sight, its upper end first.
    function show(item: Item) {
        const top = item.mapToItem(column, 0, 0).y;
        const bottom = top + item.height + 2 * Pel.margin;
        contentY = Math.min(Math.max(contentY, bottom - height), top);
    }

    /// The same, once `item` has the height that it is about to take.
    function showGrown(item: Item) {
        growing = item;
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

    Item {
        id: column

        x: Math.round((root.width - width) / 2)
        y: Pel.margin
        width: Math.min(root.width - 2 * Pel.margin, Pel.contentWidth)
        height: childrenRect.height
    }

    ScrollBar.vertical: ScrollBar {
        id: bar

        padding: 0
        minimumSize: 0.1
        contentItem: Rectangle {
            implicitWidth: Pel.scrollBarWidth
            radius: Pel.tight
            color: bar.pressed ? Pel.inkMuted : Pel.line
            visible: bar.size < 1
        }
    }

    Connections {
        target: root.growing

        function onHeightChanged() {
            const grown = root.growing;
            root.growing = null;
            if (grown)
                root.show(grown);
        }
    }

    Connections {
        target: root.Window.window

        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem;
            if (item && root.contains(item))
                root.show(item);
        }
    }
}
