pragma ComponentBehavior: Bound

import Quorvel.DesignSystem

// The small capitals above a section.
PlainText {
    id: root

    required property string title

    color: Theme.color.textTertiary
    font: Theme.font.trackedEyebrow
    text: root.title.toUpperCase()
}
