pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// Five stars to set a score: by click, by arrow keys, or by an assistive tool, which sees one
// slider. They show `value` and report each change; the owner keeps it.
FocusScope {
    id: root

    required property string label
    required property int value
    property int hovered
    readonly property int shown: root.hovered > 0 ? root.hovered : root.value

    signal edited(int value)

    function edit(value: int) {
        if (value !== root.value)
            root.edited(value);
    }

    implicitHeight: stars.implicitHeight
    implicitWidth: stars.implicitWidth

    Item {
        id: slider

        // Assistive tools write this property directly, without any signal of ours.
        property int value: root.value
        readonly property int minimumValue: RatingScale.lowest
        readonly property int maximumValue: RatingScale.highest
        readonly property int stepSize: 1

        Accessible.role: Accessible.Slider
        Accessible.name: root.label
        Accessible.description: RatingScale.description(root.value)
        Accessible.focusable: root.enabled
        activeFocusOnTab: root.enabled
        anchors.fill: parent
        focus: true

        Accessible.onDecreaseAction: root.edit(RatingScale.lowered(root.value))
        Accessible.onIncreaseAction: root.edit(RatingScale.raised(root.value))
        Keys.onLeftPressed: root.edit(RatingScale.lowered(root.value))
        Keys.onRightPressed: root.edit(RatingScale.raised(root.value))
        onValueChanged: {
            if (slider.value === root.value)
                return;
            root.edit(RatingScale.clamped(slider.value));
            slider.value = Qt.binding(() => root.value);
        }
    }

    Row {
        id: stars

        spacing: 3

        Repeater {
            model: RatingScale.highest

            RatingStar {
                required property int index

                enlarged: place === root.hovered
                lit: RatingScale.isLit(place, root.shown)
                place: index + 1

                onChosen: {
                    slider.forceActiveFocus(Qt.MouseFocusReason);
                    root.edit(place);
                }
                onEntered: root.hovered = place
                onExited: if (root.hovered === place)
                    root.hovered = 0
            }
        }
    }

    FocusRing {
        control: root
    }
}
