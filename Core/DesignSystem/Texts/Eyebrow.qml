pragma ComponentBehavior: Bound

import Quorvel.DesignSystem

// The heading of a section, in small capitals.
PlainText {
    id: root

    required property string title

    color: Theme.color.textTertiary
    font: Theme.font.trackedEyebrow
    text: root.title.toUpperCase()
}
