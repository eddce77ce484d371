pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Shown while nothing is known yet.
Item {
    id: root

    implicitHeight: column.implicitHeight + 2 * 32
    objectName: "LocatingView"

    Column {
        id: column

        anchors.centerIn: parent
        spacing: 12

        ProgressIndicator {
            anchors.horizontalCenter: parent.horizontalCenter
            size: 16
        }

        PlainText {
            text: "Đang định vị quán cafe…"
        }
    }
}
