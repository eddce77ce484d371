pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// One step. A mark shows its kind too, for users who cannot tell the colours apart.
Item {
    id: root

    required property string text
    required property bool isSuccess
    required property bool isError
    required property bool isSeparator
    readonly property real markWidth: 18

    // The success colour is too pale for text, so only the mark has it.
    readonly property color plainColor: root.isSuccess ? Theme.color.textPrimary
                                                       : Theme.color.textSecondary

    implicitHeight: words.height + (root.isSeparator ? 12 : 4)

    Symbol {
        anchors.top: words.top
        anchors.topMargin: 1
        color: root.isError ? Theme.color.error : Theme.color.success
        name: root.isError ? "exclamationmark.triangle" : "checkmark"
        size: 12
        visible: root.isError || root.isSuccess
    }

    SelectableText {
        id: words

        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        color: root.isError ? Theme.color.error : root.plainColor
        font: root.isSeparator ? Theme.font.captionSemibold : Theme.font.caption
        text: root.text
        width: root.width - words.x
        x: root.isSeparator ? 0 : root.markWidth
    }
}
