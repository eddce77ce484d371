pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The café and the time.
Column {
    id: root

    required property string title
    // "Mon, Mar 3 · 14:05"
    required property string moment

    spacing: 5

    PlainText {
        Accessible.role: Accessible.Heading
        font: Theme.font.cardTitle
        text: root.title
        width: parent.width
        wrapMode: Text.Wrap
    }

    Row {
        spacing: 5

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.color.textSecondary
            name: "clock"
            size: 11
        }

        PlainText {
            color: Theme.color.textSecondary
            font: Theme.font.caption
            text: root.moment
        }
    }
}
