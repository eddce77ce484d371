pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// One of the RatingStars.
Item {
    id: root

    required property int place
    required property bool lit
    required property bool enlarged

    signal entered
    signal exited
    signal chosen

    Accessible.ignored: true
    implicitHeight: 26
    implicitWidth: 22

    Symbol {
        anchors.centerIn: parent
        color: root.lit ? Theme.color.starOn : Theme.color.starOff
        name: root.lit ? "star.fill" : "star"
        scale: root.enlarged ? 1.18 : 1
        size: 15

        Behavior on scale {
            NumberAnimation {
                duration: 130
                easing.bezierCurve: [0.22, 0.61, 0.36, 1, 1, 1]
                easing.type: Easing.BezierSpline
            }
        }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true

        onClicked: root.chosen()
        onEntered: root.entered()
        onExited: root.exited()
    }
}
