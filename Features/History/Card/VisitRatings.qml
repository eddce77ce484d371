pragma ComponentBehavior: Bound

import QtQuick
import Quorvel.DesignSystem

// The four scores in two columns.
Column {
    id: root

    required property list<string> labels
    required property list<int> values

    spacing: 10

    Eyebrow {
        title: "How it rated"
    }

    Grid {
        id: grid

        columnSpacing: 28
        columns: 2
        rowSpacing: 10

        Repeater {
            model: root.labels

            Item {
                id: cell

                required property string modelData
                required property int index

                implicitHeight: label.implicitHeight
                width: (root.width - grid.columnSpacing) / grid.columns

                PlainText {
                    id: label

                    Accessible.ignored: true
                    color: Theme.color.textSecondary
                    text: cell.modelData
                }

                StarMeter {
                    anchors.right: parent.right
                    anchors.verticalCenter: parent.verticalCenter
                    label: cell.modelData
                    value: root.values[cell.index]
                }
            }
        }
    }
}
