pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// An area that can be pressed: with the pointer, with Space or Return, or by an assistive tool. It
// has no look of its own. While `busy`, it keeps its place and the focus and cannot be pressed.
Item {
    id: root

    required property string label
    property bool busy
    property real cornerRadius: 6
    property alias focusGap: ring.gap
    readonly property bool pressed: area.containsPress && !root.busy
    readonly property bool hovered: area.containsMouse && !root.busy

    signal clicked

    function press() {
        if (root.enabled && !root.busy)
            root.clicked();
    }

    function pressKey(event: KeyEvent) {
        if (!event.isAutoRepeat)
            root.press();
    }

    Accessible.role: Accessible.Button
    Accessible.name: root.label
    Accessible.focusable: root.enabled
    Accessible.pressed: root.pressed
    activeFocusOnTab: root.enabled

    Accessible.onPressAction: root.press()
    Keys.onEnterPressed: event => root.pressKey(event)
    Keys.onReturnPressed: event => root.pressKey(event)
    Keys.onSpacePressed: event => root.pressKey(event)

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true

        onClicked: root.press()
    }

    FocusRing {
        id: ring

        control: root
        controlRadius: root.cornerRadius
    }
}
