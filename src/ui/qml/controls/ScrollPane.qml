import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Window
import Tidewright

/// Its one child, centred, scrolling up and down. The keyboard's control is kept in sight.
Flickable {
    id: root

    default property alias content: column.data

    function show(item: Item) {
        const top = item.mapToItem(column, 0, 0).y + column.y;
        const bottom = top + item.height + Pel.margin;
        if (top - Pel.margin < contentY)
            contentY = Math.max(top - Pel.margin, 0);
        else if (bottom > contentY + height)
            contentY = Math.min(bottom, contentHeight) - height;
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
        contentItem: Rectangle {
            implicitWidth: Pel.scrollBarWidth
            radius: Pel.tight
            color: bar.pressed ? Pel.inkMuted : Pel.line
            visible: bar.size < 1
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
