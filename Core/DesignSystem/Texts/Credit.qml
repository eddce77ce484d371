pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Quorvel.DesignSystem

// Names the source of an item's data in a tooltip. It lies over the item and takes no clicks. An
// empty credit shows nothing.
Item {
    id: root

    required property string credit

    objectName: "Credit"

    HoverHandler {
        id: pointer
    }

    ToolTip {
        id: tip

        delay: 600
        font: Theme.font.caption
        horizontalPadding: 8
        text: root.credit
        verticalPadding: 4
        visible: pointer.hovered && root.Window.active && root.credit.length > 0

        background: Rectangle {
            border.color: Theme.color.borderStrong
            border.width: 1
            color: Theme.color.surface
            radius: 6
        }
        contentItem: PlainText {
            font: tip.font
            text: tip.text
        }
    }
}
