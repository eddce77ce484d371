pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.DesignSystem
import Quorvel.History

// The visits under their days, with keyboard navigation. Rows are created when they become visible.
ListView {
    id: root

    required property HistoryScreen screen
    // On the right, for the scroll bar.
    readonly property real margin: 12

    function goTo(row: int) {
        if (row < 0)
            return;
        root.currentIndex = row;
        root.positionViewAtIndex(row, ListView.Contain);
        // A day's first visit brings the day's header into view.
        if (root.screen.visitAbove(row) < row - 1)
            root.positionViewAtIndex(row - 1, ListView.Contain);
    }

    function firstInSight(): int {
        return root.screen.visitBelow(root.indexAt(0, root.contentY) - 1);
    }

    function lastInSight(): int {
        const row = root.indexAt(0, root.contentY + root.height - 1);
        return root.screen.visitAbove(row < 0 ? root.count : row + 1);
    }

    function pageUp() {
        if (root.firstInSight() >= root.currentIndex)
            root.positionViewAtIndex(root.currentIndex, ListView.End);
        root.goTo(root.firstInSight());
    }

    function pageDown() {
        if (root.lastInSight() <= root.currentIndex)
            root.positionViewAtIndex(root.currentIndex, ListView.Beginning);
        root.goTo(root.lastInSight());
    }

    function open(row: int) {
        root.currentIndex = row;
        root.forceActiveFocus();
        root.screen.openVisit(row);
    }

    Accessible.name: "Visits"
    Accessible.role: Accessible.List
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    currentIndex: -1
    // A click does not scroll the list.
    highlightFollowsCurrentItem: false
    model: root.screen.rows

    Keys.onDownPressed: root.goTo(root.screen.visitBelow(root.currentIndex))
    Keys.onUpPressed: root.goTo(root.screen.visitAbove(root.currentIndex))
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            root.goTo(root.screen.visitBelow(-1));
        else if (event.key === Qt.Key_End)
            root.goTo(root.screen.visitAbove(root.count));
        else if (event.key === Qt.Key_PageUp)
            root.pageUp();
        else if (event.key === Qt.Key_PageDown)
            root.pageDown();
        else
            return;
        event.accepted = true;
    }
    onActiveFocusChanged: if (root.activeFocus && root.currentIndex < 0)
        root.goTo(root.firstInSight())

    ScrollBar.vertical: ThinScrollBar {
        policy: root.contentHeight > root.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
    }
    delegate: HistoryLine {
        ratingLabels: root.screen.ratingLabels
        width: root.width - root.margin

        onOpened: root.open(index)
    }
}
