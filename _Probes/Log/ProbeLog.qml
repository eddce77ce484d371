pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.DesignSystem
import Quorvel.Probes

// The log, line by line. It follows its end until the user scrolls back.
FocusScope {
    id: root

    required property QtObject lines

    objectName: "ProbeLog"

    InputFrame {
        field: root
    }

    ListView {
        id: list

        readonly property real lineStep: 40
        readonly property real pageStep: list.height * 0.9
        property bool followsEnd: true

        function scrollBy(distance: real) {
            const last = list.originY + Math.max(0, list.contentHeight - list.height);
            list.contentY = Math.max(list.originY, Math.min(last, list.contentY + distance));
            list.followsEnd = list.contentY === last;
        }

        function goToEnd() {
            list.followsEnd = true;
            list.positionViewAtEnd();
        }

        Accessible.focusable: true
        Accessible.name: "Log"
        Accessible.role: Accessible.List
        activeFocusOnTab: true
        anchors.bottomMargin: 6
        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 2
        anchors.topMargin: 6
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        // The bar takes no focus; the list keeps it.
        currentIndex: -1
        focus: true
        keyNavigationEnabled: false
        model: root.lines

        Keys.onDownPressed: list.scrollBy(list.lineStep)
        Keys.onUpPressed: list.scrollBy(-list.lineStep)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_PageDown)
                list.scrollBy(list.pageStep);
            else if (event.key === Qt.Key_PageUp)
                list.scrollBy(-list.pageStep);
            else if (event.key === Qt.Key_Home)
                list.scrollBy(-list.contentHeight);
            else if (event.key === Qt.Key_End)
                list.goToEnd();
            else
                return;
            event.accepted = true;
        }
        onContentHeightChanged: following.restart()
        onCountChanged: following.restart()
        onHeightChanged: following.restart()
        onMovementEnded: list.followsEnd = list.atYEnd

        ScrollBar.vertical: ThinScrollBar {
            id: bar

            policy: list.contentHeight > list.height ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff

            onPressedChanged: if (!bar.pressed)
                list.followsEnd = list.atYEnd
        }
        delegate: ProbeLogLine {
            width: list.width - 12
        }

        // The height of new lines is known only after their layout.
        Timer {
            id: following

            interval: 0

            onTriggered: if (list.followsEnd)
                list.positionViewAtEnd()
        }
    }
}
