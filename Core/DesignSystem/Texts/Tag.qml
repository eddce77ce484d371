pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A word in a capsule that marks a special row.
Rectangle {
    id: root

    enum Kind {
        Connected,
        Saved
    }

    required property string title
    required property int kind
    readonly property bool isSaved: root.kind === Tag.Kind.Saved

    color: root.isSaved ? Theme.color.successSoft : Theme.color.accentSoft
    implicitHeight: text.implicitHeight + 4
    implicitWidth: text.implicitWidth + 12
    radius: height / 2

    PlainText {
        id: text

        anchors.centerIn: parent
        color: root.isSaved ? Theme.color.success : Theme.color.accentDeep
        font: Theme.font.tag
        text: root.title
    }
}
