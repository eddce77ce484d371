pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// A sentence that helps, in a quiet colour.
PlainText {
    color: Theme.color.textSecondary
    font: Theme.font.caption
    wrapMode: Text.Wrap
}
