pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.DesignSystem

// Scrolls content that is longer than its area, by wheel and bar. It follows the keyboard focus.
Flickable {
    id: root

    readonly property bool canScroll: root.contentHeight > root.height
    readonly property real margin: 12

    function reveal(item: Item) {
        const top = item.mapToItem(root.contentItem, 0, 0).y - root.margin;
        const bottom = top + item.height + 2 * root.margin;
        if (top < root.contentY)
            root.contentY = Math.max(0, top);
        else if (bottom > root.contentY + root.height)
            root.contentY = Math.min(bottom, root.contentHeight) - root.height;
    }

    function holds(item: Item): bool {
        let ancestor = item;
        while (ancestor && ancestor !== root.contentItem)
            ancestor = ancestor.parent;
        return ancestor !== null;
    }

    Accessible.role: Accessible.Pane
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    contentHeight: root.contentItem.childrenRect.height
    contentWidth: root.width
    flickableDirection: Flickable.VerticalFlick

    ScrollBar.vertical: ThinScrollBar {
        policy: root.canScroll ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    }

    Connections {
        function onActiveFocusItemChanged() {
            const focused = root.Window.activeFocusItem;
            if (focused && root.holds(focused))
                root.reveal(focused);
        }

        target: root.Window.window
    }
}
