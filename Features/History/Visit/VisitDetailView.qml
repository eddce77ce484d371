pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem
import Quorvel.History

// An open visit: its header and its card. The arrow keys scroll, wherever the focus is.
FocusScope {
    id: root

    required property VisitDetail detail

    signal backRequested

    // It gets the focus when it opens, so that a screen reader names it.
    Accessible.focusable: true
    Accessible.name: root.detail.card.title
    Accessible.role: Accessible.Pane
    objectName: "VisitDetailView"

    Keys.onDownPressed: area.scrollBy(area.lineStep)
    Keys.onUpPressed: area.scrollBy(-area.lineStep)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown)
            area.scrollBy(area.pageStep);
        else if (event.key === Qt.Key_PageUp)
            area.scrollBy(-area.pageStep);
        else
            return;
        event.accepted = true;
    }

    Shortcut {
        sequences: ["Escape", "Alt+Left", "Back"]

        onActivated: root.backRequested()
    }

    MouseArea {
        acceptedButtons: Qt.BackButton
        anchors.fill: parent

        onClicked: root.backRequested()
    }

    VisitDetailHeader {
        id: header

        share: root.detail.share
        width: parent.width

        onBackRequested: root.backRequested()
    }

    ScrollArea {
        id: area

        readonly property real lineStep: 40
        readonly property real pageStep: area.height - area.lineStep

        function scrollBy(points: real) {
            const end = Math.max(0, area.contentHeight - area.height);
            area.contentY = Math.min(Math.max(0, area.contentY + points), end);
        }

        Accessible.name: "Check-in"
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        contentHeight: card.height + 2 * card.y

        VisitCardView {
            id: card

            detail: root.detail
            x: Math.max(16, (area.width - width) / 2)
            y: 14
        }
    }
}
