pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A sentence that helps, and does not ask for attention.
PlainText {
    color: Theme.color.textSecondary
    font: Theme.font.caption
    wrapMode: Text.Wrap
}
