pragma ComponentBehavior: Bound

import QtQuick

// A white capsule on a picture, around its content. It is white in light and in dark, so its
// content uses the light colours.
Rectangle {
    id: root

    property alias spacing: row.spacing
    property alias leftPadding: row.leftPadding
    property alias rightPadding: row.rightPadding
    property alias topPadding: row.topPadding
    property alias bottomPadding: row.bottomPadding
    default property alias content: row.data

    color: Qt.rgba(1, 1, 1, 0.92)
    implicitHeight: row.implicitHeight
    implicitWidth: row.implicitWidth
    radius: height / 2

    Row {
        id: row
    }
}
