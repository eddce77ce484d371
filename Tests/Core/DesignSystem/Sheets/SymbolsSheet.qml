pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The symbols of a list, each in the sizes that the screens use.
Grid {
    id: root

    required property list<string> names

    columns: 2
    spacing: 8

    Repeater {
        model: root.names

        Row {
            id: sizes

            required property string modelData

            spacing: 8

            Repeater {
                model: [32, 24, 16, 13, 11]

                Symbol {
                    required property int modelData

                    anchors.verticalCenter: parent?.verticalCenter
                    color: Theme.color.textPrimary
                    name: sizes.modelData
                    size: modelData
                }
            }
        }
    }
}
