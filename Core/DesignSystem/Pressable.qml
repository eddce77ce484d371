pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// What can be pressed: with the pointer, with space or return, or by an assistive tool. Looks like
// nothing by itself.
Item {
    id: root

    required property string label
    readonly property bool pressed: area.containsPress
    readonly property bool hovered: area.containsMouse

    signal clicked

    function press(event: KeyEvent) {
        if (!event.isAutoRepeat)
            root.clicked();
    }

    Accessible.role: Accessible.Button
    Accessible.name: root.label
    Accessible.focusable: true
    Accessible.pressed: root.pressed
    activeFocusOnTab: true

    Accessible.onPressAction: root.clicked()
    Keys.onEnterPressed: event => root.press(event)
    Keys.onReturnPressed: event => root.press(event)
    Keys.onSpacePressed: event => root.press(event)

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true

        onClicked: root.clicked()
    }

    FocusRing {
        control: root
    }
}
